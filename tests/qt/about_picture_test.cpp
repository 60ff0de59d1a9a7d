// The About picture, read back with Qt's own GIF reader.
#include <QImage>
#include <QTest>

#include <cmath>

#include "ui/about.h"

namespace {

QImage Read(std::span<const std::uint8_t> file) {
  const QByteArray bytes(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size()));
  return QImage::fromData(bytes, "GIF").convertToFormat(QImage::Format_RGB32);
}

bool Is_Red(QRgb c) { return qRed(c) >= 0xC0 && qGreen(c) < 0x40 && qBlue(c) < 0x40; }
constexpr QRgb White = 0xFFFFFFFF, Black = 0xFF000000;

// The window's ellipse (30, 20) - (360, 345) seen from the picture, which lies at (24, 8).
constexpr double Centre_X = (30 + 360) / 2.0 - 24, Centre_Y = (20 + 345) / 2.0 - 8;
constexpr double Semi_X = (360 - 30) / 2.0, Semi_Y = (345 - 20) / 2.0;

}  // namespace

class About_Picture_Test : public QObject {
  Q_OBJECT
  const QImage picture_ = Read(About_Picture());

  QRgb At(double radius, double degrees) const {
    const double a = degrees * std::acos(-1.0) / 180;
    return picture_.pixel(static_cast<int>(std::floor(Centre_X + radius * std::cos(a))),
                          static_cast<int>(std::floor(Centre_Y + radius * std::sin(a))));
  }
  bool Red_At(double radius, double degrees) const { return Is_Red(At(radius, degrees)); }

 private slots:
  void is_an_8_colour_gif_of_341_by_343_in_6380_bytes() {
    const auto file = About_Picture();
    QCOMPARE(file.size(), std::size_t{6380});
    QCOMPARE(file[10] & 0x87, 0x82);  // a global table of 8 colours
    QCOMPARE(int(file.back()), 0x3B);
    QCOMPARE(picture_.size(), QSize(341, 343));
  }

  // White outside the window's ellipse, so that only the picture is seen; inside it a red ring
  // all round, clear of the ellipse's border, and a red bar from top left to bottom right across
  // a black figure.
  void shows_a_red_sign_within_the_ellipse() {
    int black = 0;
    for (int y = 0; y < picture_.height(); ++y)
      for (int x = 0; x < picture_.width(); ++x) {
        const QRgb c = picture_.pixel(x, y);
        const double dx = (x + 0.5 - Centre_X) / Semi_X, dy = (y + 0.5 - Centre_Y) / Semi_Y;
        QVERIFY2(dx * dx + dy * dy < 0.97 ? c == White || c == Black || Is_Red(c) : c == White,
                 qPrintable(QString("%1,%2").arg(x).arg(y)));
        black += c == Black;
      }
    for (int degrees = 0; degrees < 360; degrees += 5)
      QVERIFY2(Red_At(139, degrees) && At(160, degrees) == White, qPrintable(QString::number(degrees)));
    for (double r = 0; r < 100; r += 4) QVERIFY(Red_At(r, 45) && Red_At(r, 225));
    QVERIFY(black > 1000);
  }
};

QTEST_MAIN(About_Picture_Test)
#include "about_picture_test.moc"
