#include <algorithm>

#include "host/demo/demo.h"
#include "plugin/base/interface.h"
#include "suites/memory/signatures.h"

namespace vantrix::host {

// Copies the photograph into a grey frame, and a patch of it into a coloured square.
void DemonstrateMemory(Session& session) {
  const Picture& photo = session.Photo();
  const int border = photo.height / 16 + 1;
  Picture framed(photo.width + 2 * border, photo.height + 2 * border);
  const auto stride = static_cast<int32_t>(framed.width);
  Picture before = framed;
  const auto show = [&](const char* title) {
    session.ShowChange(title, {}, before, framed);
    before = framed;
  };

  session.Run<Picture>(kMemory, 3, &framed, [&](Routine routine, Picture& target) {
    for (auto& plane : target.planes)
      Call<FillBytesRoutine>(routine)(plane.data(), static_cast<int32_t>(plane.size()), 96);
  });
  show("A plane filled");
  session.Run<Picture>(kMemory, 1, &framed, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      Call<CopyRectRoutine>(routine)(photo.Row(c, 0), target.Row(c, border) + border, photo.height,
                                     photo.width, photo.width, stride);
  });
  show("The photograph copied into it");
  const int shorter = std::min(photo.width, photo.height);
  const int side = shorter / 4, inset = border + shorter / 16;
  session.Run<Picture>(kMemory, 4, &framed, [&](Routine routine, Picture& target) {
    const uint32_t color[] = {250, 200, 40};
    for (int c = 0; c < 3; ++c)
      Call<FillRectRoutine>(routine)(target.Row(c, inset) + inset, side, side, stride, color[c]);
  });
  show("A square filled");
  session.Run<Picture>(kMemory, 0, &framed, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      for (int y = 8; y < side - 8; ++y)
        Call<CopyBytesRoutine>(routine)(photo.Row(c, photo.height / 3 + y) + photo.width / 3,
                                        target.Row(c, inset + y) + inset + 8,
                                        side > 16 ? side - 16 : 0);
  });
  show("Rows copied, one at a time");
  session.Save("memory.png", framed);
}

}  // namespace vantrix::host
