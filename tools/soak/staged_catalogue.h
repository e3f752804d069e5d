#pragma once

#include "soak/ledger.h"

/// Makes a catalogue of the soak of which all is known: version 2, with an identity, and proved pictures.
void makeKnownCatalogue(const QString& freshCatalogue, const QString& path);
/// Deletes a picture of an album, so that it is another catalogue than before.
void changeCatalogue(const QString& path);

/// What is in a catalogue; a file that is none has nothing.
Found contentOf(const QString& path);
/// The same, with a sentence for each fault.
Found contentOf(const QString& path, QStringList& faults);

QByteArray bytesOf(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);
void copyFile(const QString& from, const QString& to);

/// In the process of a stage each box gets its first answer. Those that let the program end get that one, but for the
/// first of them that offers `way`.
void answerBoxesFor(const QString& way);
