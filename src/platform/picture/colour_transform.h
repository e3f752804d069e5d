#pragma once

#include <QByteArray>
#include <QRgb>
#include <memory>

/// What the numbers of a pixel mean in a picture file.
enum class ColourKind {
    grey,    ///< One brightness.
    lights,  ///< Red, green and blue.
    inks,    ///< Cyan, magenta, yellow and black.
    lab      ///< Brightness, and two colours around 128.
};

/// Turns the colours that an ICC profile describes into those of the screen, which are sRGB. It is made once for a
/// profile and never changes: any number of threads may use it at once.
class ColourTransform {
  public:
    /// nullptr where the profile is damaged, or one for another kind of colours: the picture is shown without it. The
    /// transforms used last are kept, because most pictures share a few profiles. Any thread may ask.
    static std::shared_ptr<const ColourTransform> of(const QByteArray& profile, ColourKind kind);

    virtual ~ColourTransform() = default;

    /// Whether the profile is sRGB, or nobody could see the difference.
    virtual bool changesNothing() const { return false; }

    /// Turns pixels in place. A grey comes as three equal lights, inks as amounts from 0 to 255 with black in the place
    /// of alpha.
    virtual void apply(QRgb* pixels, qsizetype count) const = 0;
};
