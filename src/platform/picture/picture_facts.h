#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <utility>

/// What a photograph tells about itself beside its pixels, as sentences for people. Everything is empty where it tells
/// nothing, or what makes no sense.
struct PictureFacts {
    QString camera;  ///< Its maker and model.
    QString lens;
    QString exposure;  ///< "1/125 秒  f/2.8  ISO 200  50 毫米"
    QString place;     ///< "北纬 31.2304°  东经 121.4737°  高 12 米"
    QString title;     ///< In one line.
    QString profile;   ///< Name of the colours that it was made for.
    QDateTime taken;   ///< The moment of exposure, without a zone: the clock of the camera.

    /// Headings and sentences of all that is there, in the order above.
    QList<std::pair<QString, QString>> lines() const;
};

/// So many bytes from the beginning of a JPEG hold all facts: cameras and programs write them before the pixels.
inline constexpr qint64 factsReach = 5 << 20;

/// Reads the beginning of a JPEG, where they are; never throws. They end with the header of its first scan, in front of
/// which there may be a long profile.
PictureFacts pictureFacts(const QByteArray& jpeg);
