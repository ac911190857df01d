#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "plugin/base/interface.h"
#include "suites/convert/signatures.h"

namespace vantrix::host {

// Converts the photograph to 16 bits, to the full range and back: every sample must be as it was.
void DemonstrateDepths(Session& session) {
  session.Explain("A 16-bit sample of this host is 0 to 32768; other programs use 0 to 65535.");
  using Words = std::vector<uint16_t>;
  const Picture& photo = session.Photo();
  const int32_t width = photo.width, height = photo.height;
  Picture middle(width, height), home(width, height);
  for (size_t c = 0; c < 3; ++c) {
    Words words(photo.planes[c].size());
    session.Run<Words>(kConvert, 18, &words, [&](Routine routine, Words& target) {
      Call<Expand8To16Routine>(routine)(photo.planes[c].data(), target.data(), height, width, width,
                                        2 * width);
    });
    const auto rescale = [&](uint32_t from, uint32_t to) {
      session.Run<Words>(kConvert, 19, &words, [&](Routine routine, Words& target) {
        Call<RescaleWordsRoutine>(routine)(target.data(), from, to, height, width, 2 * width);
      });
    };
    rescale(0x8000, 0xFFFF);
    for (size_t i = 0; i < words.size(); ++i)
      middle.planes[c][i] = static_cast<uint8_t>(words[i] >> 8);
    rescale(0xFFFF, 0x8000);
    for (size_t i = 0; i < words.size(); ++i)
      home.planes[c][i] = static_cast<uint8_t>((words[i] * 255 + 16384) / 32768);
  }
  const bool isHome = home == photo;
  session.Require(isHome);
  session.ShowChange("To 16 bits, to the full range, and back",
                     isHome ? "After the way there and back every sample is what it was."
                            : "NOT EVERY SAMPLE IS WHAT IT WAS.",
                     photo, home);
  Sheet sheet(3, 400);
  sheet.Add(photo, "8 bits");
  sheet.Add(middle, "0..65535, high bytes");
  sheet.Add(home, isHome ? "8 bits again: the same" : "8 bits again: NOT THE SAME");
  session.Save("depths.png", sheet.Draw());
}

}  // namespace vantrix::host
