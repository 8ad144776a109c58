#pragma once
// The pictures drawn at build time at the sizes a 96 DPI screen shows at scale 1
// and 2 (tools/prerender): the board's, the window icon's and the pointer's. A
// start on such a screen shows its first frame, icon and pointer without reading
// any SVG. Other sizes are drawn when needed.
#include <QImage>

namespace swui {

// The pixels of picture `name` ("virus" for virus.svg) drawn `device` pixels square, as
// premultiplied ARGB32 words of this machine's byte order; null when not drawn ahead.
const unsigned char* PrerenderedPixels(const char* name, int device);

// The same as an image over the program's own table (no copy); null when not drawn ahead.
inline QImage PrerenderedImage(const char* name, int device) {
  const unsigned char* pixels = PrerenderedPixels(name, device);
  if (pixels == nullptr) return {};
  return QImage(pixels, device, device, QImage::Format_ARGB32_Premultiplied);
}

}  // namespace swui
