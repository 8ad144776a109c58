// prerender: draws board pictures ahead of time, as the game would draw them,
// into a C++ source of pixel tables that the game links in.
//   prerender OUT.cpp SIZE[,SIZE...] PICTURE.svg...
// The tables hold premultiplied ARGB32 words in the byte order of the machine
// that runs the tool: the build's own.
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ui/PictureRender.h"

int main(int argc, char* argv[]) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: prerender OUT.cpp SIZE[,SIZE...] PICTURE.svg...\n");
    return 2;
  }
  // Drawing needs no screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  std::vector<int> sizes;
  for (const QString& s : QString::fromLocal8Bit(argv[2]).split(',')) {
    bool ok = false;
    const int size = s.toInt(&ok);
    if (!ok || size < 1 || size > 512) {
      std::fprintf(stderr, "prerender: bad size '%s'\n", qPrintable(s));
      return 2;
    }
    sizes.push_back(size);
  }
  std::ostringstream tables, index;
  int n = 0;
  for (int i = 3; i < argc; ++i) {
    QSvgRenderer svg(QString::fromLocal8Bit(argv[i]));
    if (!svg.isValid()) {
      std::fprintf(stderr, "prerender: cannot read %s as SVG\n", argv[i]);
      return 1;
    }
    const std::string name = QFileInfo(QString::fromLocal8Bit(argv[i])).completeBaseName().toStdString();
    for (int size : sizes) {
      const QImage image = swui::RenderPicture(svg, size);
      tables << "alignas(4) const unsigned char k" << n << "[] = {  // " << name << ", " << size << " px\n";
      const auto* bytes = image.constBits();
      const auto count = static_cast<size_t>(image.sizeInBytes());
      for (size_t b = 0; b < count; ++b) tables << int(bytes[b]) << (b % 32 == 31 ? ",\n" : ",");
      tables << "};\n";
      index << "    {\"" << name << "\", " << size << ", k" << n << "},\n";
      ++n;
    }
  }
  std::ofstream out(argv[1], std::ios::trunc);
  out << "// Made by tools/prerender from the board pictures at build time; not to be edited.\n"
      << "#include <cstring>\n\n#include \"ui/Prerendered.h\"\n\nnamespace swui {\n\nnamespace {\n\n"
      << tables.str() << "\nstruct Entry {\n  const char* name;\n  int device;\n  const unsigned char* pixels;\n};\n\n"
      << "const Entry kEntries[] = {\n" << index.str() << "};\n\n}  // namespace\n\n"
      << "const unsigned char* PrerenderedPixels(const char* name, int device) {\n"
      << "  for (const Entry& e : kEntries)\n"
      << "    if (e.device == device && std::strcmp(e.name, name) == 0) return e.pixels;\n"
      << "  return nullptr;\n}\n\n}  // namespace swui\n";
  out.close();
  if (!out) {
    std::fprintf(stderr, "prerender: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
