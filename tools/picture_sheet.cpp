// picture_sheet: draws the game's pictures with Qt's own SVG renderer (the one the
// game uses) into one contact sheet, and prints how much of its box each picture fills.
//
//   picture_sheet PICTURE_DIR OUT.png
//
// The sheet has a light and a dark half. Each half shows the map pictures in a row of
// map cells at 1x (32 px) and at 2x (64 px), a small stretch of map with pictures side
// by side (1x, with grid lines as the game draws them), the pointer, the nine pointers
// of the board's steps at 1x and 2x over map cells, and the icon at 16 to 128 px. Exit status: the number of pictures
// that could not be read.
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

namespace {

struct Theme {
  const char* name;
  QColor window, board, line, text;
};

const Theme kThemes[] = {
    {"light", QColor("#efefef"), QColor("#f9f9f9"), QColor("#dadada"), QColor("#202020")},
    {"dark", QColor("#2b2b2b"), QColor("#303030"), QColor("#474747"), QColor("#e8e8e8")},
};

// The map pictures in keypad order for the mouse, then the rest.
const char* const kMap[] = {"player7", "player8", "player9", "player4", "player5", "player6",
                            "player1", "player2", "player3", "death",   "virus",   "infected"};
const char* const kLabel[] = {"7", "8", "9", "4", "5", "6", "1", "2", "3", "death", "virus", "infected"};

// A stretch of map: one letter per cell. Digits = the mouse facing that way,
// v = virus, i = infected server, d = dead mouse, . = empty.
const char* const kScene[] = {
    "v.v..ii.8.v..",
    ".5..vi.v..d.i",
    "..7.9v.4.6..v",
    ".1.2.3.ii.v.i",
};

class Pictures {
 public:
  explicit Pictures(const QString& dir) : dir_(dir) {}
  QSvgRenderer* Get(const QString& name) {
    auto it = r_.find(name);
    if (it == r_.end()) {
      auto r = std::make_unique<QSvgRenderer>(dir_.filePath(name + ".svg"));
      if (!r->isValid()) {
        std::fprintf(stderr, "INVALID: %s.svg\n", qPrintable(name));
        ++bad;
      }
      it = r_.emplace(name, std::move(r)).first;
    }
    return it->second->isValid() ? it->second.get() : nullptr;
  }
  void Draw(QPainter& p, const QString& name, const QRectF& box) {
    if (QSvgRenderer* r = Get(name)) r->render(&p, box);
  }
  int bad = 0;

 private:
  QDir dir_;
  std::map<QString, std::unique_ptr<QSvgRenderer>> r_;
};

// Draws a row of map cells (grid line on the right and bottom of each, the block closed
// on the left and top, as the game's map does) and the pictures inside the lines.
void DrawCells(QPainter& p, Pictures& pics, const Theme& t, int x, int y, int cell, const std::vector<QString>& names,
               int cols) {
  const int rows = (static_cast<int>(names.size()) + cols - 1) / cols;
  const QRect board(x, y, cols * cell, rows * cell);
  p.fillRect(board, t.board);
  p.setRenderHint(QPainter::Antialiasing, false);
  p.setPen(QPen(t.line, 0));
  for (int c = 0; c <= cols; ++c) {
    const int lx = c == 0 ? board.left() : board.left() + c * cell - 1;
    p.drawLine(lx, board.top(), lx, board.bottom());
  }
  for (int r = 0; r <= rows; ++r) {
    const int ly = r == 0 ? board.top() : board.top() + r * cell - 1;
    p.drawLine(board.left(), ly, board.right(), ly);
  }
  p.setRenderHint(QPainter::Antialiasing, true);
  const int inner = cell - 1;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i].isEmpty()) continue;
    const int c = static_cast<int>(i) % cols, r = static_cast<int>(i) / cols;
    pics.Draw(p, names[i], QRectF(x + c * cell, y + r * cell, inner, inner));
  }
}

void Caption(QPainter& p, const Theme& t, int x, int y, int w, const QString& s, int px = 10) {
  QFont f("DejaVu Sans");
  f.setPixelSize(px);
  p.setFont(f);
  p.setPen(t.text);
  p.drawText(QRect(x, y, w, px + 4), Qt::AlignHCenter | Qt::AlignTop, s);
}

void Heading(QPainter& p, const Theme& t, int x, int y, const QString& s) {
  QFont f("DejaVu Sans");
  f.setPixelSize(12);
  f.setBold(true);
  p.setFont(f);
  p.setPen(t.text);
  p.drawText(QPoint(x, y + 12), s);
}

constexpr int kPad = 16;
constexpr int kGap = 6;  // between the 2x cells, so that each box can be seen
constexpr int kPanelW = kPad * 2 + 12 * (64 + kGap);

int DrawPanel(QPainter& p, Pictures& pics, const Theme& t, int y0, bool measureOnly) {
  int y = y0 + kPad;
  if (!measureOnly) {
    p.fillRect(QRect(0, y0, kPanelW, 10000), t.window);
    Heading(p, t, kPad, y, QString("%1 background: 1x (32 px cells)").arg(t.name));
  }
  y += 20;
  std::vector<QString> names(std::begin(kMap), std::end(kMap));
  if (!measureOnly) {
    // 1x: one cell per picture, each under its caption, spaced like the 2x row.
    for (int i = 0; i < 12; ++i) {
      const int x = kPad + i * (64 + kGap) + 16;
      DrawCells(p, pics, t, x, y, 32, {names[i]}, 1);
      Caption(p, t, x - 16, y + 34, 64, kLabel[i]);
    }
  }
  y += 52;
  if (!measureOnly) Heading(p, t, kPad, y, "2x (64 px cells)");
  y += 20;
  if (!measureOnly) {
    for (int i = 0; i < 12; ++i) {
      const int x = kPad + i * (64 + kGap);
      DrawCells(p, pics, t, x, y, 64, {names[i]}, 1);
    }
  }
  y += 64 + 14;
  if (!measureOnly) Heading(p, t, kPad, y, "on the map, 1x");
  y += 20;
  const int sceneCols = static_cast<int>(qstrlen(kScene[0]));
  std::vector<QString> scene;
  for (const char* row : kScene)
    for (const char* c = row; *c; ++c) {
      switch (*c) {
        case 'v': scene.push_back("virus"); break;
        case 'i': scene.push_back("infected"); break;
        case 'd': scene.push_back("death"); break;
        case '.': scene.push_back(QString()); break;
        default: scene.push_back(QString("player%1").arg(*c));
      }
    }
  if (!measureOnly) DrawCells(p, pics, t, kPad, y, 32, scene, sceneCols);
  // The pointer, as the window shows it (32 px, tip at the top-left corner), and 2x.
  const int px = kPad + sceneCols * 32 + 40;
  if (!measureOnly) {
    Heading(p, t, px, y - 20, "pointer 1x, 2x");
    pics.Draw(p, "pointer", QRectF(px, y + 8, 32, 32));
    pics.Draw(p, "pointer", QRectF(px + 48, y + 8, 64, 64));
    const int ix = px + 140;
    Heading(p, t, ix, y - 20, "icon 16, 24, 32, 48");
    int x = ix;
    for (int s : {16, 24, 32, 48}) {
      pics.Draw(p, "icon", QRectF(x, y + 8 + (48 - s), s, s));
      x += s + 10;
    }
  }
  y += 4 * 32 + 14;
  // The board's pointers, one per step, in keypad order: over map cells at 1x and at 2x.
  if (!measureOnly) Heading(p, t, kPad, y, "board pointers 1x (32 px cells) and 2x (64 px), hot spot at the centre");
  y += 20;
  if (!measureOnly) {
    for (int i = 0; i < 9; ++i) {
      const QString name = QString("pointer%1").arg(kLabel[i]);
      const int x = kPad + i * (64 + kGap);
      DrawCells(p, pics, t, x + 16, y, 32, {QString()}, 1);
      pics.Draw(p, name, QRectF(x + 16, y, 32, 32));
      Caption(p, t, x, y + 34, 64, kLabel[i]);
      DrawCells(p, pics, t, x, y + 52, 64, {QString()}, 1);
      pics.Draw(p, name, QRectF(x, y + 52, 64, 64));
    }
  }
  y += 52 + 64 + 14;
  if (!measureOnly) {
    Heading(p, t, kPad, y, "icon 64, 128");
    pics.Draw(p, "icon", QRectF(kPad, y + 20 + 64, 64, 64));
    pics.Draw(p, "icon", QRectF(kPad + 80, y + 20, 128, 128));
  }
  y += 20 + 128 + kPad;
  return y - y0;
}

// The box of the pixels at least a little opaque, in a rendering of SIZE px, and
// the share of the whole box that is mostly opaque (in percent, into *cover).
QRect Ink(QSvgRenderer& r, int size, int* cover = nullptr) {
  QImage img(size, size, QImage::Format_ARGB32);
  img.fill(Qt::transparent);
  {
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    r.render(&p, QRectF(0, 0, size, size));
  }
  int x0 = size, y0 = size, x1 = -1, y1 = -1, solid = 0;
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size; ++x) {
      const int a = qAlpha(img.pixel(x, y));
      if (a >= 24) {
        x0 = std::min(x0, x), x1 = std::max(x1, x);
        y0 = std::min(y0, y), y1 = std::max(y1, y);
      }
      if (a >= 160) ++solid;
    }
  if (cover != nullptr) *cover = solid * 100 / (size * size);
  return x1 < 0 ? QRect() : QRect(QPoint(x0, y0), QPoint(x1, y1));
}

void Measure(Pictures& pics) {
  std::printf("%-9s %-18s %-8s %-8s %-8s %s\n", "picture", "ink box (64 px)", "long", "short", "covered",
              "margins L T R B");
  std::vector<QString> all(std::begin(kMap), std::end(kMap));
  all.push_back("icon");
  for (const QString& n : all) {
    QSvgRenderer* r = pics.Get(n);
    if (r == nullptr) continue;
    int cover = 0;
    const QRect b = Ink(*r, 64, &cover);
    if (b.isNull()) continue;
    const int lng = std::max(b.width(), b.height()), sht = std::min(b.width(), b.height());
    std::printf("%-9s %2d,%2d %2dx%-2d       %3d%%     %3d%%     %3d%%     %d %d %d %d\n", qPrintable(n), b.x(), b.y(),
                b.width(), b.height(), lng * 100 / 64, sht * 100 / 64, cover, b.left(), b.top(), 63 - b.right(),
                63 - b.bottom());
  }
  if (QSvgRenderer* r = pics.Get("pointer")) {
    const QRect b = Ink(*r, 32);
    std::printf("%-9s %2d,%2d %2dx%-2d (32 px)\n", "pointer", b.x(), b.y(), b.width(), b.height());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: picture_sheet PICTURE_DIR OUT.png\n");
    return 100;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  Pictures pics{QString::fromLocal8Bit(argv[1])};
  QImage probe(1, 1, QImage::Format_ARGB32);
  QPainter pp(&probe);
  const int panelH = DrawPanel(pp, pics, kThemes[0], 0, true);
  pp.end();
  QImage sheet(kPanelW, panelH * 2, QImage::Format_RGB32);
  QPainter p(&sheet);
  p.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < 2; ++i) DrawPanel(p, pics, kThemes[i], i * panelH, false);
  p.end();
  if (!sheet.save(QString::fromLocal8Bit(argv[2]), "PNG", 0)) {  // 0: smallest file
    std::fprintf(stderr, "cannot write %s\n", argv[2]);
    return 100;
  }
  Measure(pics);
  return pics.bad;
}
