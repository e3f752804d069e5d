#pragma once

#include <QString>

/// How the files are called, behind the catalogue's own name, and what is done.
struct ConversionNames {
    QString half;
    QString whole;
    QString old;   ///< With a place for a number, where the name is taken.
    QString left;  ///< Of a new one that does not take the place of the old one; likewise.
    QString deed;
};
ConversionNames namesOfConversion();
/// What is whole of a damaged catalogue is taken out; that one has the day in its second name.
ConversionNames namesOfRescue();

/// The files of the conversion of a catalogue, all of them in its folder: `lunq-转换中.mdb` while the new one is being
/// made, `lunq-转换好.mdb` when it is whole, and then `lunq-旧.mdb`, the old one, which loses its own name last, by one
/// renaming. A kill at any time leaves the old file whole under one of its two names; nothing but a whole new one ever
/// takes the first.
class ConversionFiles {
  public:
    /// Through a link the real file is meant.
    explicit ConversionFiles(const QString& catalogue, ConversionNames names = namesOfConversion());

    const QString& old() const { return catalogue_; }
    /// The second name that it gets: a free one, unless it has it already.
    QString nameOfOld() const;
    const QString& half() const { return half_; }
    const QString& whole() const { return whole_; }

    /// Removes what an earlier conversion has left, unless the old file has no name: then that is all there is. Throws
    /// `Error` in that case, and when there is no place for a new file beside the old one, or too little.
    void begin() const;
    /// Removes the half file. Does not throw.
    void giveUp() const;
    /// The half file, which nothing has open, is whole, and gets its name on the disk. Throws `Error`.
    void close() const;
    /// Gives the old file its second name, and the new one the first. Returns the second name. Throws `Error`; the old
    /// file has its first name again then, where the disk allows it.
    QString exchange() const;
    /// Gives the new file a free name with the day instead, and returns that. Throws `Error`.
    QString leave() const;

    /// Goes on where a kill has left the folder without a catalogue: a whole new one takes its place. Throws `Error`.
    void resume() const;

  private:
    QString freeName(const QString& pattern) const;
    QString keepOld() const;

    ConversionNames names_;
    QString folder_, base_;
    QString catalogue_, half_, whole_;
};
