#include "catalogue/selection_buttons.h"

#include "catalogue/album_rules.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Recordset offeredBy(const Database& catalogue, const QString& album, const QString& andAlso) {
    return catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE InStr(图册,"_s + quoted(album) + u") > 0"_s + andAlso +
                                   u" ORDER BY [序号]"_s);
}

QString text(const Recordset& button, const QString& column) {
    return button.Fields(column).Value().textOr();
}

}  // namespace

bool isAllPictures(const QString& code) {
    return code.compare(allPicturesCode, Qt::CaseInsensitive) == 0;
}

Recordset buttonsOfAlbum(const Database& catalogue, const QString& album) {
    return offeredBy(catalogue, album, {});
}

Recordset pictureButtonsOfAlbum(const Database& catalogue, const QString& album) {
    return offeredBy(catalogue, album, u" And not IsNull(图片)"_s);
}

std::vector<SelectionCode> codesOfAlbum(const Database& catalogue, const QString& album) {
    std::vector<SelectionCode> codes;
    for (Recordset buttons = buttonsOfAlbum(catalogue, album); !buttons.Eof(); buttons.MoveNext())
        codes.push_back({text(buttons, u"编号"_s), text(buttons, u"名称"_s)});
    return codes;
}

Recordset buttonsWithCode(const Database& catalogue, const QString& code) {
    return catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code) + u" ORDER BY [序号]"_s);
}

QString nameOfCode(const Database& catalogue, const QString& code) {
    return text(buttonsWithCode(catalogue, code), u"名称"_s);
}

bool offerAlbum(const Database& catalogue, const QString& code, const QString& album) {
    Recordset button = buttonsWithCode(catalogue, code);
    if (button.Eof()) return false;
    Field albums = button.Fields(u"图册"_s);
    const QString offered = albums.Value().textOr();
    if (offersAlbum(offered, album)) return false;
    button.Edit();
    albums.SetValue(offered + album);
    button.Update();
    return true;
}

QString whereCode(const QString& code) {
    return code == allPicturesCode ? QString() : u" WHERE InStr(编号,"_s + quoted(code) + u") > 0"_s;
}

QString codeLine(const QString& code, const QString& name, bool offered) {
    return offered ? code + u" {"_s + name + u'}' : code + u' ' + name;
}

QString codeOfLine(const QString& line) {
    return line.left(1);
}
