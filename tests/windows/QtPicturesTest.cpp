#include "platform/qt/QtPictures.h"

#include "platform/qt/SurfaceImage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{

class Pictures : public testing::Test
{
protected:
    std::filesystem::path file(const char* name) const
    {
        return m_folder.filePath(QLatin1String(name)).toStdString();
    }

    std::filesystem::path write(const char* name, const QByteArray& bytes) const
    {
        QFile out(file(name));
        EXPECT_TRUE(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
        return file(name);
    }

    std::filesystem::path save(const char* name, const char* format, const QImage& image) const
    {
        EXPECT_TRUE(image.save(m_folder.filePath(QLatin1String(name)), format));
        return file(name);
    }

    QTemporaryDir m_folder;
    QtPictures m_pictures;
};

/// A GIF picture of two pixels, red and see-through; the second has the palette's green.
const QByteArray twoPixelGif = QByteArray::fromHex(
    "47494638396102000100800000ff000000ff0021f90401000001002c0000000002000100000202440a003b");

TEST_F(Pictures, AreKnownByTheirContent)
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, rgb(255, 0, 0));
    image.setPixel(1, 0, rgb(0, 0, 255));
    for (const char* format : {"bmp", "png"}) {
        const auto picture = m_pictures.read(save("misnamed.txt", format, image));
        ASSERT_TRUE(picture) << format;
        EXPECT_EQ(*picture, surfaceOfImage(image)) << format;
    }
    const auto jpeg = m_pictures.read(save("picture.bmp", "jpg", image));
    ASSERT_TRUE(jpeg);
    EXPECT_EQ(jpeg->width(), 2);
    const auto gif = m_pictures.read(write("picture.gif", twoPixelGif));
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->at(0, 0), rgb(255, 0, 0));
    EXPECT_EQ(gif->at(1, 0) & opaqueBits, opaqueBits);
}

TEST_F(Pictures, KeepTheirColoursWhereTheyAreSeeThrough)
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x40ff8040U);
    image.setPixel(1, 0, 0x0000ff00U);
    const auto picture = m_pictures.read(save("faint.png", "png", image));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->at(0, 0), 0xffff8040U);
    EXPECT_EQ(picture->at(1, 0), 0xff00ff00U);
}

TEST_F(Pictures, AreNothingWhereTheFileIsNone)
{
    EXPECT_FALSE(m_pictures.read(file("missing.bmp")));
    EXPECT_FALSE(m_pictures.read(write("empty.bmp", "")));
    EXPECT_FALSE(m_pictures.read(write("text.bmp", "This is no picture.")));
    EXPECT_FALSE(m_pictures.read(
        write("drawing.bmp", R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)")));
    EXPECT_FALSE(m_pictures.read(m_folder.path().toStdString()));
    ASSERT_EQ(mkfifo(file("pipe.bmp").c_str(), 0600), 0);
    EXPECT_FALSE(m_pictures.read(file("pipe.bmp"))); // and does not wait for somebody to write to it
    // A header that promises 60000 x 60000 pixels.
    EXPECT_FALSE(m_pictures.read(write(
        "huge.bmp",
        QByteArray::fromHex("424d3600000000000000360000002800000060ea000060ea0000010018000000000000000000"
                            "00000000000000000000000000000000"))));
}

TEST_F(Pictures, AreWrittenWholeOrNotAtAll)
{
    Surface picture(3, 2, rgb(10, 20, 30));
    picture.set(1, 1, rgb(255, 254, 1));
    ASSERT_TRUE(writePng(picture, file("picture.png")));
    EXPECT_EQ(m_pictures.read(file("picture.png")), picture);
    EXPECT_FALSE(writePng(picture, file("nowhere/picture.png")));
    ASSERT_EQ(mkfifo(file("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(writePng(picture, file("pipe")));
    EXPECT_TRUE(std::filesystem::is_fifo(file("pipe"))); // and not replaced
}

} // namespace
