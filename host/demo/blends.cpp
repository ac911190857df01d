#include <algorithm>
#include <cstdio>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "plugin/suites.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

// What a blend takes besides the photograph, which is the destination: a second
// picture as its source, a soft-edged mask, a colour, half an opacity.
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
// The share replaces the photograph; the plane that it is a share of is set aside.
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
} kBlends[] = {
    {2, Masked},      {3, Color},    {24, Plane},  {56, Opacity}, {22, Masked}, {27, Plane},
    {57, Opacity},    {26, Color},   {49, Plane},  {58, Opacity}, {47, Masked}, {48, Color},
    {52, Plane},      {59, Opacity}, {50, Masked}, {51, Color},   {28, Plane},  {10, Masked},
    {11, Color},      {29, Plane},   {7, Masked},  {8, Color},    {30, Masked}, {31, Color},
    {106, MaskFirst}, {74, Planes},  {75, Planes}, {97, Invert},  {66, Planes}, {96, Share},
};

const char* NameOfSlot(uint16_t slot) {
  const auto slots = Catalog()[kBlend].slots;
  return std::find_if(slots.begin(), slots.end(), [&](const Slot& s) { return s.index == slot; })
      ->name;
}

}  // namespace

void DemonstrateBlends(Session& session) {
  const Picture& photo = session.Photo();
  const Operands with{photo, GeneratedPicture(photo.width, photo.height),
                      VignetteMask(photo.width, photo.height)};
  Sheet sheet(5, 320);
  sheet.Add(photo, "the photograph");
  sheet.Add(with.source, "the source");
  for (const auto& blend : kBlends) {
    Picture result = photo;
    const auto times =
        session.Run<Picture>(kBlend, blend.slot, &result, [&](Routine routine, Picture& target) {
          for (int c = 0; c < 3; ++c) blend.onPlane(routine, with, c, target);
        });
    char label[120];
    std::snprintf(label, sizeof label, "%d %s\nhost %.1f ms, plug-in %.1f ms", blend.slot,
                  NameOfSlot(blend.slot), 1e3 * times.byDefault, 1e3 * times.byPlugin);
    sheet.Add(result, label);
  }
  session.Save("blends.png", sheet.Draw());
}

}  // namespace vantrix::host
