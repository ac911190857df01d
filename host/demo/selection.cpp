#include <algorithm>
#include <iterator>
#include <string>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "plugin/base/interface.h"
#include "suites/select/signatures.h"

namespace vantrix::host {
namespace {

// Shows a mask for each class, and the class that both routines return for it.
void Classify(Session& session, int width, int height, Sheet& sheet) {
  const auto soft = VignetteMask(width, height);
  const auto mapped = [&](auto rule) {
    auto mask = soft;
    for (uint8_t& m : mask) m = static_cast<uint8_t>(rule(m));
    return mask;
  };
  const std::vector<uint8_t> masks[] = {
      mapped([](int) { return 0; }),
      mapped([](int m) { return m / 3; }),
      soft,
      mapped([](int m) { return 128 + m / 3; }),
      mapped([](int) { return 255; }),
  };
  constexpr const char* kClasses[] = {"all 0", "all below half", "mixed", "all from half on",
                                      "all full"};
  const auto nameOf = [&](int32_t answer) -> std::string {
    if (answer < 0 || answer >= static_cast<int32_t>(std::size(kClasses))) return "no class";
    return "class " + std::to_string(answer) + ": " + kClasses[answer];
  };
  std::vector<Figure> figures;
  for (const auto& mask : masks) {
    int32_t answer = -1;
    session.Run<int32_t>(kSelect, 33, &answer, [&](Routine routine, int32_t& target) {
      target = Call<Classify8Routine>(routine)(mask.data(), height, width, width);
    });
    std::vector<uint16_t> words(mask.begin(), mask.end());
    for (uint16_t& word : words) word = static_cast<uint16_t>((word * 32768 + 127) / 255);
    int32_t wide = -1;
    session.Run<int32_t>(kSelect, 75, &wide, [&](Routine routine, int32_t& target) {
      target = Call<Classify16Routine>(routine)(words.data(), height, width, 2 * width);
    });
    std::string label = nameOf(answer);
    if (wide != answer) label += "; in 16 bits " + nameOf(wide);
    const Picture shown = Gray(mask, width, height);
    sheet.Add(shown, label);
    figures.emplace_back(label, shown);
  }
  session.Show("Masks classified",
               "Five masks, black for 0 and white for 255, in 8 bits and in 16. The routine says "
               "which class each belongs to.",
               std::move(figures));
}

// Returns a picture that is orange where bit 7 is set, and grey elsewhere.
Picture Marked(const std::vector<uint8_t>& data, int width, int height) {
  constexpr uint8_t kOrange[] = {255, 150, 40};
  Picture picture = Gray(data, width, height);
  for (size_t c = 0; c < 3; ++c)
    for (uint8_t& sample : picture.planes[c])
      if (sample & 128) sample = kOrange[c];
  return picture;
}

// Draws a line, and spreads its marks row by row.
void Spread(Session& session, int width, int height, Sheet& sheet) {
  constexpr uint8_t kMark = 128, kGround = 40;
  std::vector<uint8_t> marks(static_cast<size_t>(width) * static_cast<size_t>(height), kGround);
  for (int x = 0; x < width; ++x) {
    const int y = height / 2 + (x % 400 < 200 ? x % 200 : 200 - x % 200) * height / 800;
    marks[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] |= kMark;
  }
  const Picture before = Marked(marks, width, height);
  sheet.Add(before, "marks are orange");
  const int turns = std::clamp(height / 40, 1, 40);
  for (int turn = 0; turn < turns; ++turn) {
    session.Run<std::vector<uint8_t>>(
        kSelect, 26, &marks, [&](Routine routine, std::vector<uint8_t>& target) {
          Call<SpreadMarkRoutine>(routine)(target.data(), height, width, width);
        });
    session.Advance(0.1 + 0.3 * turn / turns);
  }
  const Picture after = Marked(marks, width, height);
  const std::string times = std::to_string(turns) + (turns == 1 ? " time" : " times");
  session.ShowChange("Marks spread",
                     "Orange entries are marked, grey ones are not. Each call marks the entries "
                     "above and below marked ones; it was called " +
                         times + ".",
                     before, after);
  sheet.Add(after, "spread " + times + ", a row up and down at a time");
}

// Seeds in a grid take the photograph's colours and push them in the four directions.
template <class T, class Signature>
Picture Mosaic(Session& session, uint16_t slot) {
  const Picture& photo = session.Photo();
  const int width = photo.width, height = photo.height;
  struct Planes {
    std::vector<T> priority, value;
    bool operator==(const Planes&) const = default;
  };
  constexpr int kApart = 40;
  constexpr int32_t kSize = sizeof(T);
  Picture mosaic(width, height);
  for (int c = 0; c < 3; ++c) {
    const auto& samples = photo.planes[static_cast<size_t>(c)];
    Planes planes{std::vector<T>(samples.size()), std::vector<T>(samples.begin(), samples.end())};
    for (int y = kApart / 2; y < height; y += kApart)
      for (int x = kApart / 2 + y % 3 * 10; x < width; x += kApart)
        planes.priority[static_cast<size_t>(y) * static_cast<size_t>(width) +
                        static_cast<size_t>(x)] = kApart;
    // Steps of the 8-bit routine count entries, those of the 16-bit routine bytes.
    const int32_t row = width * kSize, entry = kSize;
    const size_t last = samples.size() - 1;
    const struct {
      size_t start;
      int32_t lines, length, lineStep, entryStep;
    } walks[] = {{0, height, width, row, entry},
                 {last, height, width, -row, -entry},
                 {0, width, height, entry, row},
                 {last, width, height, -entry, -row}};
    for (const auto& walk : walks)
      session.Run<Planes>(kSelect, slot, &planes, [&](Routine routine, Planes& target) {
        Call<Signature>(routine)(target.priority.data() + walk.start,
                                 target.value.data() + walk.start, walk.lines, walk.length,
                                 walk.lineStep, walk.entryStep);
      });
    for (size_t i = 0; i < samples.size(); ++i)
      mosaic.planes[static_cast<size_t>(c)][i] = static_cast<uint8_t>(planes.value[i]);
  }
  return mosaic;
}

}  // namespace

void DemonstrateSelection(Session& session) {
  const Picture& photo = session.Photo();
  Sheet sheet(5, 320);
  Classify(session, photo.width, photo.height, sheet);
  session.Advance(0.1);
  Spread(session, photo.width, photo.height, sheet);
  sheet.Add(photo, "the photograph");
  session.Advance(0.4);
  const auto show = [&](const std::string& title, const Picture& mosaic) {
    session.ShowChange(title,
                       "Seeds in a grid take the photograph's colours and push them right, left, "
                       "down and up, until their priority is used up.",
                       photo, mosaic);
    sheet.Add(mosaic, title);
  };
  show("Colours propagated", Mosaic<uint8_t, Propagate8Routine>(session, 35));
  session.Advance(0.7);
  show("Colours propagated, in 16 bits", Mosaic<uint16_t, Propagate16Routine>(session, 73));
  session.Save("selection.png", sheet.Draw());
}

}  // namespace vantrix::host
