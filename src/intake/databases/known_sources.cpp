#include "intake/databases/known_sources.h"

#include "catalogue/remembered.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString storedName = u"intake.sources"_s;
const QString fileKey = u"file"_s, codePageKey = u"codePage"_s, tablesKey = u"tables"_s;
constexpr qsizetype mostFiles = 40;

QJsonArray all() {
    return QJsonDocument::fromJson(remembered::text(storedName).toUtf8()).array();
}

QString pathOf(const QString& file) {
    const QString real = QFileInfo(file).canonicalFilePath();
    return real.isEmpty() ? file : real;
}

QJsonObject noteOf(const QString& file) {
    const QString path = pathOf(file);
    for (const QJsonValue note : all())
        if (note.toObject()[fileKey].toString() == path) return note.toObject();
    return {{fileKey, path}};
}

/// The last one that was used stands in front.
void store(const QJsonObject& note) {
    QJsonArray notes{note};
    for (const QJsonValue other : all())
        if (other.toObject()[fileKey] != note[fileKey] && notes.size() < mostFiles) notes.append(other);
    remembered::setText(storedName, QString::fromUtf8(QJsonDocument(notes).toJson(QJsonDocument::Compact)));
}

}  // namespace

int knownSources::codePage(const QString& file) {
    return noteOf(file)[codePageKey].toInt();
}

void knownSources::setCodePage(const QString& file, int codePage) {
    QJsonObject note = noteOf(file);
    note[codePageKey] = codePage;
    store(note);
}

FieldMapping knownSources::mapping(const QString& file, const QString& table) {
    const QJsonObject pairs = noteOf(file)[tablesKey].toObject()[table].toObject();
    FieldMapping mapping;
    for (auto pair = pairs.begin(); pair != pairs.end(); ++pair) mapping.push_back({pair.key(), pair->toString()});
    return mapping;
}

void knownSources::setMapping(const QString& file, const QString& table, const FieldMapping& mapping) {
    QJsonObject pairs;
    for (const FieldPair& pair : mapping)
        if (!pair.source.isEmpty()) pairs[pair.target] = pair.source;
    QJsonObject note = noteOf(file);
    QJsonObject tables = note[tablesKey].toObject();
    tables[table] = pairs;
    note[tablesKey] = tables;
    store(note);
}
