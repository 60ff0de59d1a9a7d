// Paints the program's icon from its SVG into a square PNG, so that the picture exists once and
// the build needs no SVG library. The SVG is drawn from <rect> elements only (x, y, width,
// height, rx, fill as #rrggbb) on the grid of its viewBox; anything else in it is refused.
//
// Usage: vorlane_render_icon SVG PNG SIZE
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <string_view>

namespace {

std::map<std::string, std::string> Attributes(const std::string& element) {
  static const std::regex attribute(R"re(([\w:-]+)="([^"]*)")re");
  std::map<std::string, std::string> found;
  for (auto it = std::sregex_iterator(element.begin(), element.end(), attribute); it != std::sregex_iterator(); ++it)
    found[(*it)[1]] = (*it)[2];
  return found;
}

int Fail(const char* what) {
  std::fprintf(stderr, "vorlane_render_icon: %s\n", what);
  return 1;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc == 2 && std::string_view(argv[1]) == "--help") {
    std::puts(
        "usage: vorlane_render_icon SVG PNG SIZE\nPaints the SVG drawing of rectangles as a PNG of SIZE x SIZE "
        "pixels.");
    return 0;
  }
  if (argc != 4) return Fail("usage: vorlane_render_icon SVG PNG SIZE");
  std::ifstream in(argv[1]);
  const std::string svg((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const int size = std::atoi(argv[3]);
  if (svg.empty() || size <= 0) return Fail("no SVG, or no size");

  // Comments may say anything; the drawing may hold nothing but rectangles.
  const std::string drawing = std::regex_replace(svg, std::regex("<!--[\\s\\S]*?-->"), "");
  if (std::regex_search(drawing, std::regex(R"(<(?!\?xml|svg\b|/svg>|rect\b)[^>]*>)")))
    return Fail("the SVG holds more than <rect> elements");
  std::smatch root;
  if (!std::regex_search(drawing, root, std::regex(R"(<svg\b[^>]*>)"))) return Fail("no <svg> element");
  double left = 0, top = 0, width = 0, height = 0;
  if (std::sscanf(Attributes(root.str())["viewBox"].c_str(), "%lf %lf %lf %lf", &left, &top, &width, &height) != 4 ||
      width <= 0 || width != height)
    return Fail("the viewBox must be a square");

  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.scale(size / width, size / height);
  painter.translate(-left, -top);
  static const std::regex rect(R"(<rect\b[^>]*>)");
  for (auto it = std::sregex_iterator(drawing.begin(), drawing.end(), rect); it != std::sregex_iterator(); ++it) {
    auto a = Attributes(it->str());
    const QColor fill(QString::fromStdString(a["fill"]));
    if (!fill.isValid()) return Fail("a <rect> without a #rrggbb fill");
    painter.setBrush(fill);
    const double rx = a.count("rx") ? std::atof(a["rx"].c_str()) : 0;
    painter.drawRoundedRect(QRectF(std::atof(a["x"].c_str()), std::atof(a["y"].c_str()), std::atof(a["width"].c_str()),
                                   std::atof(a["height"].c_str())),
                            rx, rx);
  }
  painter.end();
  return image.save(QString::fromLocal8Bit(argv[2]), "PNG") ? 0 : Fail("cannot write the PNG");
}
