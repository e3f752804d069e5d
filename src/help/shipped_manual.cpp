#include "help/shipped_manual.h"

#include "catalogue/fingerprint.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QVersionNumber>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In `lunq_values`: the version of the program that has put the manual there, a blank, and the fingerprint of the
/// text.
const QString noteName = u"manual.shipped"_s;

QByteArray resource(const QString& name) {
    QFile file(u":/catalogue/"_s + name);
    if (!file.open(QIODevice::ReadOnly)) throw Error(u"程序中缺少帮助文本。"_s);
    return file.readAll();
}

QString printOf(const QString& text) {
    return QString::fromLatin1(fingerprintOf(text.toUtf8()).sha256.toHex());
}

bool isEarlierManual(const QString& print) {
    return resource(u"earlier_manuals.txt"_s).split('\n').contains(print.toLatin1());
}

bool isNewer(const QString& version, const QString& than) {
    return QVersionNumber::fromString(version) > QVersionNumber::fromString(than);
}

/// The first row of `tcsz`.
Recordset settingsOf(const Database& catalogue) {
    return catalogue.OpenRecordset(u"tcsz"_s);
}

void replaceText(const Database& catalogue, const QString& text) {
    Recordset settings = settingsOf(catalogue);
    settings.Edit();
    settings.Fields(u"帮助"_s).SetValue(text);
    settings.Update();
}

void replaceContents(const Database& catalogue, const std::vector<ManualSection>& sections) {
    catalogue.Execute(u"DELETE FROM tcbz"_s);
    Recordset contents = catalogue.OpenRecordset(u"tcbz"_s);
    for (const auto& [number, title] : sections) {
        contents.AddNew();
        contents.Fields(u"编号"_s).SetValue(number);
        contents.Fields(u"标题"_s).SetValue(title);
        contents.Update();
    }
}

void replacePreviews(const Database& catalogue, const std::map<int, QByteArray>& previews) {
    for (Recordset schemes = catalogue.OpenRecordset(u"tcys"_s); !schemes.Eof(); schemes.MoveNext()) {
        const auto preview = previews.find(schemes.Fields(u"序号"_s).Value().toInteger());
        if (preview == previews.end()) continue;
        schemes.Edit();
        schemes.Fields(u"主窗口"_s).AppendChunk(preview->second);
        schemes.Update();
    }
}

}  // namespace

ShippedManual shippedManual() {
    QString text = QString::fromUtf8(resource(u"manual.html"_s));
    // The manual is one text in the catalogue, its pictures included.
    static const QRegularExpression source(u"src=\"(pictures/[a-z0-9]+\\.jpg)\""_s);
    for (auto found = source.match(text); found.hasMatch(); found = source.match(text))
        text.replace(
            found.capturedStart(), found.capturedLength(),
            u"src=\"data:image/jpeg;base64,"_s + QString::fromLatin1(resource(found.captured(1)).toBase64()) + u'"');

    ShippedManual manual{text, QCoreApplication::applicationVersion(), {}};
    for (int scheme = 0; QFile::exists(u":/catalogue/previews/%1.jpg"_s.arg(scheme)); ++scheme)
        manual.previews[scheme] = resource(u"previews/%1.jpg"_s.arg(scheme));
    return manual;
}

std::vector<ManualSection> sectionsOf(const QString& manual) {
    static const QRegularExpression heading(u"<h3>(\\S+) (.*?)</h3>"_s);
    std::vector<ManualSection> sections;
    for (auto found = heading.globalMatch(manual); found.hasNext();) {
        const auto section = found.next();
        sections.push_back({section.captured(1), QTextDocumentFragment::fromHtml(section.captured(2)).toPlainText()});
    }
    return sections;
}

bool renewManual(const Database& catalogue, const ShippedManual& shipped) {
    OwnValues values(catalogue);
    const QString print = printOf(shipped.text);
    const QString note = shipped.version + u' ' + print;
    const QString noted = values.value(noteName).value_or(QString());
    if (noted == note || isNewer(noted.section(u' ', 0, 0), shipped.version)) return false;

    const QString present = printOf(settingsOf(catalogue).Fields(u"帮助"_s).Value().textOr());
    const bool isOurs = present == print || present == noted.section(u' ', 1) || isEarlierManual(present);
    if (!isOurs) return false;
    Transaction together(catalogue);
    if (present != print) {
        replaceText(catalogue, shipped.text);
        replaceContents(catalogue, sectionsOf(shipped.text));
        replacePreviews(catalogue, shipped.previews);
    }
    values.setValue(noteName, note);
    together.commit();
    return present != print;
}
