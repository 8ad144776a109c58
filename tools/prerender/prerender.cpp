// prerender: draws pictures ahead of time, as the game would draw them, into a
// C++ source of pixel tables that the game links in.
//   prerender OUT.cpp SIZE[,SIZE...] PICTURE.svg... [-- SIZE[,SIZE...] PICTURE.svg...]...
// Each group's pictures are drawn at its sizes. The tables follow the order of
// the groups, and within a group the order of its sizes, so that the pictures a
// start shows lie side by side in the program and those it does not show are
// never read from it. The tables hold premultiplied ARGB32 words in the byte
// order of the machine that runs the tool: the build's own.
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ui/PictureRender.h"

namespace {

bool ParseSizes(const char* arg, std::vector<int>& sizes) {
  sizes.clear();
  for (const QString& s : QString::fromLocal8Bit(arg).split(',')) {
    bool ok = false;
    const int size = s.toInt(&ok);
    if (!ok || size < 1 || size > 512) {
      std::fprintf(stderr, "prerender: bad size '%s'\n", qPrintable(s));
      return false;
    }
    sizes.push_back(size);
  }
  return true;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 4) {
    std::fprintf(stderr,
                 "usage: prerender OUT.cpp SIZE[,SIZE...] PICTURE.svg... [-- SIZE[,SIZE...] PICTURE.svg...]...\n");
    return 2;
  }
  // Drawing needs no screen.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  std::ostringstream tables, index;
  size_t offset = 0;
  for (int at = 2; at < argc;) {
    std::vector<int> sizes;
    if (!ParseSizes(argv[at++], sizes)) return 2;
    int end = at;
    while (end < argc && std::string(argv[end]) != "--") ++end;
    if (end == at) {
      std::fprintf(stderr, "prerender: sizes without pictures\n");
      return 2;
    }
    for (int size : sizes) {
      for (int i = at; i < end; ++i) {
        const QImage image = swui::ReadPicture(QString::fromLocal8Bit(argv[i]), size);
        if (image.isNull()) {
          std::fprintf(stderr, "prerender: cannot read %s as SVG\n", argv[i]);
          return 1;
        }
        const std::string name = QFileInfo(QString::fromLocal8Bit(argv[i])).completeBaseName().toStdString();
        tables << "    // " << name << ", " << size << " px\n";
        const auto* bytes = image.constBits();
        const auto count = static_cast<size_t>(image.sizeInBytes());
        for (size_t b = 0; b < count; ++b) tables << int(bytes[b]) << (b % 32 == 31 ? ",\n" : ",");
        tables << "\n";
        index << "    {\"" << name << "\", " << size << ", " << offset << "},\n";
        offset += count;
      }
    }
    at = end + 1;
  }
  std::ofstream out(argv[1], std::ios::trunc);
  out << "// Made by tools/prerender from the pictures at build time; not to be edited.\n"
      << "#include <cstddef>\n#include <cstring>\n\n#include \"ui/Prerendered.h\"\n\nnamespace swui {\n\nnamespace "
         "{\n\n"
      << "// One table in a section of its own, in the order the tool was given: apart from the\n"
      << "// program's other constants, so that reading those never reads pictures along with them.\n"
      << "__attribute__((section(\"skitterweb_pictures\"))) alignas(4) const unsigned char kPixels[] = {\n"
      << tables.str() << "};\n\nstruct Entry {\n  const char* name;\n  int device;\n  size_t offset;\n};\n\n"
      << "const Entry kEntries[] = {\n"
      << index.str() << "};\n\n}  // namespace\n\n"
      << "const unsigned char* PrerenderedPixels(const char* name, int device) {\n"
      << "  for (const Entry& e : kEntries)\n"
      << "    if (e.device == device && std::strcmp(e.name, name) == 0) return kPixels + e.offset;\n"
      << "  return nullptr;\n}\n\n}  // namespace swui\n";
  out.close();
  if (!out) {
    std::fprintf(stderr, "prerender: cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
