#pragma once

#include <QByteArray>
#include <QString>

/// Pictures of which no two are the same, and the catalogue that the soak begins with.
class Samples {
  public:
    /// `serial` numbers the pictures. Several users of one catalogue begin far apart.
    explicit Samples(quint64 serial);

    QByteArray small();
    QByteArray large();  ///< Three megabytes.
    QByteArray bitmap();

    /// Makes files of small pictures, one of them large and one a bitmap where there are more than two. Named by the
    /// numbers from `first` on.
    void writeFiles(const QString& folder, int first, int count);
    void writeLarge(const QString& path);

  private:
    QByteArray marked(const QByteArray& jpeg);
    quint64 serial_;
};

inline const QString smallSpec = QStringLiteral("64 * 48");
inline const QString largeSpec = QStringLiteral("1900 * 1400");

/// The albums of the catalogue that the soak works on.
inline const QString workAlbum = QStringLiteral("tc05");
inline const QString otherAlbum = QStringLiteral("tc06");
inline const QString longAlbum = QStringLiteral("tc09");  ///< To be renumbered.

/// Makes a catalogue with these albums out of the fresh one of the build. The long one has so many pictures.
void makeCatalogue(const QString& fresh, const QString& path, int longPictures = 2000);
/// The file and what the engine keeps beside it.
void removeCatalogue(const QString& path);
/// An empty catalogue with the tables tc02 and tc05, as a place to transfer pictures to.
void makeOtherCatalogue(const QString& path);
