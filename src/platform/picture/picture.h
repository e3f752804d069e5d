#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>
#include <QString>

/// A decoded picture. Its size is that of the whole upright picture in pixels, even when the image in memory was
/// decoded smaller for a small target.
class Picture {
  public:
    Picture() = default;
    Picture(QImage image, QSize pixels, QByteArray profile = {})
        : image_(std::move(image)), pixels_(pixels), profile_(std::move(profile)) {}
    explicit Picture(const QImage& image) : image_(image), pixels_(image.size()) {}

    bool isNull() const { return image_.isNull(); }
    const QImage& image() const { return image_; }
    QSize pixels() const { return pixels_; }
    /// The ICC profile of the red, green and blue of the image; empty where they are meant for the screen as they are.
    const QByteArray& profile() const { return profile_; }

    /// Size in HiMetric units, hundredths of a millimetre at 96 pixels to the inch.
    int Width() const;
    int Height() const;

  private:
    QImage image_;
    QSize pixels_;
    QByteArray profile_;
};

/// In which colours a picture is wanted.
enum class Colours {
    ofScreen,  ///< sRGB, to be shown as it is.
    ofFile     ///< Red, green and blue as they are in the file, with their profile. Greys and inks that have a profile
               ///< become sRGB at once, and so does what has none.
};

/// The picture in the colours of the screen: it has no profile any more. One that has none stays as it is.
Picture inScreenColours(Picture picture);

/// The longest side of a picture in pixels; larger ones are refused.
inline constexpr int longestPictureSide = 32767;

/// HiMetric units of one pixel, as all sizes in albums are computed. An inch has 2540 units and 96 pixels, which makes
/// 26.458; the divisor is a little smaller, so that cutting off the fraction seldom loses a pixel.
inline constexpr double hiMetricPerPixel = 26.455;

/// HiMetric units of a length in pixels: pixels * 2540 / 96, rounded to the nearest unit from which
/// `pixelsFromHiMetric` gives the pixels again. Plain rounding would make 74 of 75 pixels, and 8001 of 8000.
int hiMetricFromPixels(int pixels);

/// Whole pixels of a HiMetric length: Int(length / 26.455).
int pixelsFromHiMetric(int length);

/// Decodes a BMP or JPEG file, upright by its EXIF orientation. With a `target` in device pixels, a larger picture is
/// decoded at a reduced scale that still covers the target box (keeping its shape), which is much quicker.
/// Throws `Error` that names the file when it is missing, damaged, of another kind or too large. A profile that is
/// damaged, or one for other colours than the picture has, is passed over.
Picture LoadPicture(const QString& path, QSize target = {}, Colours colours = Colours::ofScreen);

/// The same from an open device or from bytes; `name` is how the error calls the picture.
Picture LoadPicture(QIODevice& device, const QString& name, QSize target = {}, Colours colours = Colours::ofScreen);
Picture LoadPicture(const QByteArray& bytes, const QString& name, QSize target = {},
                    Colours colours = Colours::ofScreen);

/// The picture scaled to exactly the target, when that is smaller in both directions: painting it then costs no
/// scaling. Any other picture as it is.
Picture shrunkTo(const Picture& picture, QSize target);

/// Writes a JPEG file. A new file is written first and then takes the name, so a failure leaves the old one as it was.
/// Transparent parts become white. A profile goes into the file: it says what the image's colours mean. Throws `Error`
/// that names the file.
void saveJpeg(const QImage& image, const QString& path, int quality, const QByteArray& profile = {});

/// The bytes of such a file. Throws `Error` when there is no picture, or one too large for the format.
QByteArray encodeJpeg(const QImage& image, int quality, const QByteArray& profile = {});

/// Writes the bytes of a picture as `saveJpeg` does.
void savePictureBytes(const QByteArray& bytes, const QString& path);

/// The same as `saveJpeg` for a 24-bit BMP.
void SavePicture(const QImage& image, const QString& path, const QByteArray& profile = {});
