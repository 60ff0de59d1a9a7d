// Paints the program's icon from its SVG into a square PNG, or into the Windows icon file of the
// sizes Windows shows, so that the picture exists once and no build needs an SVG library. The SVG
// is drawn from <rect> elements only (x, y, width, height, rx, fill as #rrggbb) on the grid of its
// viewBox; anything else in it is refused.
//
// Usage: vorlane_render_icon SVG PNG SIZE
//        vorlane_render_icon [--check] SVG ICO
#include <QBuffer>
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
#include <vector>

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

// The drawing of the SVG at size x size pixels; nullptr, or what is wrong with the SVG.
const char* Paint(const std::string& svg, int size, QImage& image) {
  // Comments may say anything; the drawing may hold nothing but rectangles.
  const std::string drawing = std::regex_replace(svg, std::regex("<!--[\\s\\S]*?-->"), "");
  if (std::regex_search(drawing, std::regex(R"(<(?!\?xml|svg\b|/svg>|rect\b)[^>]*>)")))
    return "the SVG holds more than <rect> elements";
  std::smatch root;
  if (!std::regex_search(drawing, root, std::regex(R"(<svg\b[^>]*>)"))) return "no <svg> element";
  double left = 0, top = 0, width = 0, height = 0;
  if (std::sscanf(Attributes(root.str())["viewBox"].c_str(), "%lf %lf %lf %lf", &left, &top, &width, &height) != 4 ||
      width <= 0 || width != height)
    return "the viewBox must be a square";

  image = QImage(size, size, QImage::Format_ARGB32);
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
    if (!fill.isValid()) return "a <rect> without a #rrggbb fill";
    painter.setBrush(fill);
    const double rx = a.count("rx") ? std::atof(a["rx"].c_str()) : 0;
    painter.drawRoundedRect(QRectF(std::atof(a["x"].c_str()), std::atof(a["y"].c_str()), std::atof(a["width"].c_str()),
                                   std::atof(a["height"].c_str())),
                            rx, rx);
  }
  return nullptr;
}

void Put16(QByteArray& out, unsigned v) { out.append(static_cast<char>(v & 0xFF)).append(static_cast<char>(v >> 8)); }
void Put32(QByteArray& out, unsigned v) {
  Put16(out, v & 0xFFFF);
  Put16(out, v >> 16);
}

// A Windows icon file of PNG images: a directory of the sizes, then the images.
const char* Icon_File(const std::string& svg, QByteArray& file) {
  const std::vector<int> sizes{16, 24, 32, 48, 64, 256};
  std::vector<QByteArray> images;
  for (const int size : sizes) {
    QImage image;
    if (const char* wrong = Paint(svg, size, image)) return wrong;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    images.push_back(png);
  }
  Put16(file, 0), Put16(file, 1), Put16(file, static_cast<unsigned>(sizes.size()));
  unsigned offset = 6 + 16 * static_cast<unsigned>(sizes.size());
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const auto side = static_cast<char>(sizes[i] == 256 ? 0 : sizes[i]);
    file.append(side).append(side).append('\0').append('\0');
    Put16(file, 1), Put16(file, 32), Put32(file, static_cast<unsigned>(images[i].size())), Put32(file, offset);
    offset += static_cast<unsigned>(images[i].size());
  }
  for (const QByteArray& image : images) file.append(image);
  return nullptr;
}

std::string Read(const char* path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace

int main(int argc, char* argv[]) {
  const char* const usage =
      "usage: vorlane_render_icon SVG PNG SIZE\n"
      "       vorlane_render_icon [--check] SVG ICO\n"
      "Paints the SVG drawing of rectangles as a PNG of SIZE x SIZE pixels, or as a Windows icon\n"
      "file of the sizes 16 to 256; with --check, compares the icon file with what it would write.";
  if (argc == 2 && std::string_view(argv[1]) == "--help") {
    std::puts(usage);
    return 0;
  }
  const bool check = argc == 4 && std::string_view(argv[1]) == "--check";
  if (check || (argc == 3)) {
    const std::string svg = Read(argv[argc - 2]);
    if (svg.empty()) return Fail("no SVG");
    QByteArray icon;
    if (const char* wrong = Icon_File(svg, icon)) return Fail(wrong);
    if (check) return Read(argv[argc - 1]) == icon.toStdString() ? 0 : Fail("the icon file is not what the SVG paints");
    std::ofstream out(argv[argc - 1], std::ios::binary);
    out.write(icon.constData(), icon.size());
    return out ? 0 : Fail("cannot write the icon file");
  }
  if (argc != 4) return Fail(usage);
  const std::string svg = Read(argv[1]);
  const int size = std::atoi(argv[3]);
  if (svg.empty() || size <= 0) return Fail("no SVG, or no size");
  QImage image;
  if (const char* wrong = Paint(svg, size, image)) return Fail(wrong);
  return image.save(QString::fromLocal8Bit(argv[2]), "PNG") ? 0 : Fail("cannot write the PNG");
}
