// svg2png: renders an SVG picture into square PNGs of the sizes asked for, on a
// transparent background, keeping its aspect ratio and centring it.
//   svg2png IN.svg OUT.png SIZE [OUT.png SIZE ...]
// The build makes the application icon's PNGs with it, so they always follow the SVG.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool Render(QSvgRenderer& svg, const char* out, int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    svg.render(&painter, QRectF(0, 0, size, size));
  }
  return image.save(QString::fromLocal8Bit(out), "PNG");
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 4 || argc % 2 != 0) {
    std::fprintf(stderr, "usage: svg2png IN.svg OUT.png SIZE [OUT.png SIZE ...]\n");
    return 2;
  }
  // Rendering needs no screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
  if (!svg.isValid()) {
    std::fprintf(stderr, "svg2png: cannot read %s as SVG\n", argv[1]);
    return 1;
  }
  svg.setAspectRatioMode(Qt::KeepAspectRatio);
  for (int i = 2; i < argc; i += 2) {
    char* end = nullptr;
    const long size = std::strtol(argv[i + 1], &end, 10);
    if (end == argv[i + 1] || *end != '\0' || size < 1 || size > 4096) {
      std::fprintf(stderr, "svg2png: bad size '%s'\n", argv[i + 1]);
      return 2;
    }
    if (!Render(svg, argv[i], static_cast<int>(size))) {
      std::fprintf(stderr, "svg2png: cannot write %s\n", argv[i]);
      return 1;
    }
  }
  return 0;
}
