#include <cmath>

#include "host/demo/demo.h"
#include "plugin/base/interface.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {

std::vector<uint8_t> VignetteMask(int width, int height) {
  std::vector<uint8_t> mask;
  mask.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double u = 2.0 * x / width - 1, v = 2.0 * y / height - 1;
      const double edge = (0.9 - std::sqrt(u * u + v * v)) / 0.35;
      const double t = std::fmin(1, std::fmax(0, edge));
      mask.push_back(static_cast<uint8_t>(std::lround(255 * t * t * (3 - 2 * t))));
    }
  }
  return mask;
}

// Blends the photograph into a second picture, and a colour around the photograph.
void DemonstrateVignette(Session& session) {
  const Picture& photo = session.Photo();
  const auto mask = VignetteMask(photo.width, photo.height);

  const Picture scenery = GeneratedPicture(photo.width, photo.height);
  Picture second = scenery;
  session.Run<Picture>(kBlend, 2, &second, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      Call<MaskedBlend>(routine)(photo.Row(c, 0), target.Row(c, 0), mask.data(), photo.height,
                                 photo.width, photo.width, photo.width, photo.width);
  });
  session.ShowChange(
      "The photograph over another picture",
      "Under a mask that is 255 in an ellipse and falls to 0 over a soft edge: s is the "
      "photograph, d the other picture.",
      scenery, second);
  session.Save("vignette-picture.png", second);

  auto outside = mask;
  for (uint8_t& m : outside) m = static_cast<uint8_t>(255 - m);
  Picture framed = photo;
  session.Run<Picture>(kBlend, 3, &framed, [&](Routine routine, Picture& target) {
    const uint32_t color[] = {24, 32, 64};
    for (int c = 0; c < 3; ++c)
      Call<ColorMaskedBlend>(routine)(color[c], target.Row(c, 0), outside.data(), photo.height,
                                      photo.width, photo.width, photo.width);
  });
  session.ShowChange("A colour around the photograph",
                     "The same mask, complemented: c is a dark blue, d the photograph.", photo,
                     framed);
  session.Save("vignette-colour.png", framed);
}

}  // namespace vantrix::host
