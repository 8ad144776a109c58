#pragma once
// The board pictures drawn at build time at the sizes a board has on a 96 DPI
// screen at scale 1 and 2 (tools/prerender), so that a start on such a screen
// shows its first frame without reading any SVG. Other sizes are drawn when needed.
namespace swui {

// The pixels of picture `name` ("virus" for virus.svg) drawn `device` pixels square, as
// premultiplied ARGB32 words of this machine's byte order; null when not drawn ahead.
const unsigned char* PrerenderedPixels(const char* name, int device);

}  // namespace swui
