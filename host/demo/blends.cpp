#include <cstdio>
#include <iterator>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "plugin/base/interface.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

// What a blend takes in addition to the photograph, which is the destination: a second picture as
// its source, a soft-edged mask, a colour, an opacity.
struct Operands {
  const Picture& photo;
  Picture source;
  std::vector<uint8_t> mask;
  uint32_t color[3] = {235, 120, 40};
  uint32_t opacity = 160;
};

using OnPlane = void(Routine routine, const Operands& with, int c, Picture& target);

void Plane(Routine routine, const Operands& with, int c, Picture& d) {
  Call<PlaneBlend>(routine)(with.source.Row(c, 0), d.Row(c, 0), d.height, d.width, d.width,
                            d.width);
}
void Opacity(Routine routine, const Operands& with, int c, Picture& d) {
  Call<OpacityBlend>(routine)(with.source.Row(c, 0), d.Row(c, 0), d.height, d.width, d.width,
                              d.width, with.opacity);
}
void Masked(Routine routine, const Operands& with, int c, Picture& d) {
  Call<MaskedBlend>(routine)(with.source.Row(c, 0), d.Row(c, 0), with.mask.data(), d.height,
                             d.width, d.width, d.width, d.width);
}
void Color(Routine routine, const Operands& with, int c, Picture& d) {
  Call<ColorMaskedBlend>(routine)(with.color[c], d.Row(c, 0), with.mask.data(), d.height, d.width,
                                  d.width, d.width);
}
void Planes(Routine routine, const Operands& with, int c, Picture& d) {
  Call<PlanesBlend>(routine)(with.photo.Row(c, 0), d.Row(c, 0), with.source.Row(c, 0), d.height,
                             d.width, d.width, d.width, d.width);
}
void Invert(Routine routine, const Operands& with, int c, Picture& d) {
  Call<InvertBlend>(routine)(with.photo.Row(c, 0), with.source.Row(c, 0), d.Row(c, 0), d.height,
                             d.width, d.width, d.width, d.width, 1, 1, 0);
}
// The share replaces the photograph; the combined plane is discarded.
void Share(Routine routine, const Operands& with, int c, Picture& d) {
  auto combined = with.source.planes[static_cast<size_t>(c)];
  Call<ShareBlend>(routine)(d.Row(c, 0), combined.data(), d.height, d.width, d.width, d.width);
}
void MaskFirst(Routine routine, const Operands& with, int c, Picture& d) {
  Call<MaskFirstBlend>(routine)(with.mask.data(), d.Row(c, 0), d.height, d.width, d.width, d.width,
                                with.color[c]);
}

constexpr struct {
  uint16_t slot;
  OnPlane* onPlane;
  const char* title;
} kBlends[] = {
    {2, Masked, "Normal, under the mask"},
    {3, Color, "A colour, under the mask"},
    {24, Plane, "Multiply"},
    {56, Opacity, "Multiply, at an opacity"},
    {22, Masked, "Multiply, under the mask"},
    {27, Plane, "Screen"},
    {57, Opacity, "Screen, at an opacity"},
    {26, Color, "Screen with a colour, under the mask"},
    {49, Plane, "Overlay"},
    {58, Opacity, "Overlay, at an opacity"},
    {47, Masked, "Overlay, under the mask"},
    {48, Color, "Overlay with a colour, under the mask"},
    {52, Plane, "Hard light"},
    {59, Opacity, "Hard light, at an opacity"},
    {50, Masked, "Hard light, under the mask"},
    {51, Color, "Hard light with a colour, under the mask"},
    {28, Plane, "Lighten"},
    {10, Masked, "Lighten, under the mask"},
    {11, Color, "Lighten to a colour, under the mask"},
    {29, Plane, "Darken"},
    {7, Masked, "Darken, under the mask"},
    {8, Color, "Darken to a colour, under the mask"},
    {30, Masked, "Copied where the mask is 128 or more"},
    {31, Color, "A colour where the mask is 128 or more"},
    {106, MaskFirst, "A colour where the mask is 0"},
    {74, Planes, "The product of two planes"},
    {75, Planes, "The complement of the complement's product"},
    {97, Invert, "The product of two complements"},
    {66, Planes, "Burn"},
    {96, Share, "The photograph's share of a screen"},
};

}  // namespace

void DemonstrateBlends(Session& session) {
  const Picture& photo = session.Photo();
  const Operands with{photo, GeneratedPicture(photo.width, photo.height),
                      VignetteMask(photo.width, photo.height)};
  session.Explain(
      "The photograph is the destination, d in the rules. The source, s, is a picture made by "
      "rule. "
      "The mask, m, is 255 in an ellipse about the middle and falls to 0 over a soft edge. The "
      "colour, c, is an orange, and the opacity, k, is 160 of 255. Where a rule has a and b, they "
      "are the photograph and the source.");
  session.Show("What is blended", {},
               {{"the photograph", photo},
                {"the source", with.source},
                {"the mask", Gray(with.mask, photo.width, photo.height)}});
  Sheet sheet(5, 320);
  sheet.Add(photo, "the photograph");
  sheet.Add(with.source, "the source");
  int done = 0;
  for (const auto& blend : kBlends) {
    Picture result = photo;
    const auto times =
        session.Run<Picture>(kBlend, blend.slot, &result, [&](Routine routine, Picture& target) {
          for (int c = 0; c < 3; ++c) blend.onPlane(routine, with, c, target);
        });
    char label[120];
    std::snprintf(label, sizeof label, "%d %s\nordinary %.1f ms, plug-in %.1f ms", blend.slot,
                  FindSlot(Catalog()[kBlend], blend.slot)->name, 1e3 * times.byOrdinary,
                  1e3 * times.byPlugin);
    sheet.Add(result, label);
    session.ShowChange(blend.title, {}, photo, result);
    session.Advance(double(++done) / std::size(kBlends));
  }
  session.Save("blends.png", sheet.Draw());
}

}  // namespace vantrix::host
