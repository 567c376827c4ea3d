#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QTemporaryDir>

#include <fstream>

#include "platform/qt/QtImages.h"
#include "support/SimModel.h"
#include "support/TestApplication.h"

namespace tolv::qt {
namespace {

class QtImagesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }

  QtImages images;
};

QImage halves(int size, QColor left, QColor right) {
  QImage image(size, size, QImage::Format_ARGB32);
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x)
      image.setPixelColor(x, y, x < size / 2 ? left : right);
  }
  return image;
}

TEST_F(QtImagesTest, RedrawingGivesAnRgbaBitmapOfTheAskedSizeWithTheWholePictureInIt) {
  Image source = wrap(halves(512, Qt::red, Qt::blue));
  auto bitmap = images.firstBitmap(images.redrawnAsBitmap(source, 64, 64));
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->width, 64);
  EXPECT_EQ(bitmap->height, 64);
  EXPECT_EQ(bitmap->bytesPerRow, 256);
  ASSERT_EQ(bitmap->bytes.size(), 16384u);
  auto pixel = [&](int x, int y) {
    const uint8_t* p = &bitmap->bytes[size_t(y) * 256 + size_t(x) * 4];
    return std::vector<int>{p[0], p[1], p[2], p[3]};
  };
  EXPECT_EQ(pixel(0, 0), (std::vector<int>{255, 0, 0, 255}));
  EXPECT_EQ(pixel(63, 63), (std::vector<int>{0, 0, 255, 255}));
  EXPECT_EQ(pixel(20, 40), (std::vector<int>{255, 0, 0, 255}));
}

TEST_F(QtImagesTest, TranslucentPixelsAreStoredPremultipliedAndReadBackAsWritten) {
  QImage translucent(2, 1, QImage::Format_ARGB32);
  translucent.setPixelColor(0, 0, QColor(255, 0, 0, 128));
  translucent.setPixelColor(1, 0, QColor(0, 0, 0, 0));
  auto bitmap = images.firstBitmap(wrap(translucent));
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->bytes[0], 128);
  EXPECT_EQ(bitmap->bytes[3], 128);
  EXPECT_EQ(bitmap->bytes[7], 0);

  EXPECT_EQ(images.firstBitmap(images.imageFromBitmap(*bitmap)), bitmap);
  EXPECT_FALSE(images.imageFromBitmap(RgbaBitmap{64, 64, 256, std::vector<uint8_t>(100)}));
}

TEST_F(QtImagesTest, AFileIconIsThePictureItselfOrTheOneItsDesktopEntryNames) {
  QTemporaryDir folder;
  QString png = folder.filePath("tool.png");
  ASSERT_TRUE(halves(16, Qt::green, Qt::green).save(png));
  std::string entry = folder.filePath("tool.desktop").toStdString();
  std::ofstream(entry) << "[Desktop Entry]\nName=Tool\nIcon=" << png.toStdString() << "\n";

  EXPECT_EQ(unwrap(images.iconForFile(png.toStdString())).pixelColor(3, 3), QColor(Qt::green));
  EXPECT_EQ(unwrap(images.iconForFile(entry)).pixelColor(8, 8), QColor(Qt::green));
}

TEST_F(QtImagesTest, TheIconCacheRoundTripsToolkitImagesThroughItsFiles) {
  testing::SimModel sim;
  Platform platform = sim.desktop.platform();
  platform.images = &images;
  auto model = AppModel::make(platform);
  Image icon = model->applicationIcon("/opt/Paint.app", "org.example.Paint",
                                      wrap(halves(128, Qt::yellow, Qt::black)));
  model.reset();

  auto restarted = AppModel::make(platform);
  QImage loaded = unwrap(restarted->appIconCache.at("bundle:org.example.Paint"));
  ASSERT_EQ(loaded.size(), QSize(64, 64));
  EXPECT_EQ(loaded.pixelColor(10, 10), QColor(Qt::yellow));
  EXPECT_EQ(loaded.pixelColor(50, 10), QColor(Qt::black));
  EXPECT_EQ(images.firstBitmap(icon), images.firstBitmap(wrap(loaded)));
}

}  // namespace
}  // namespace tolv::qt
