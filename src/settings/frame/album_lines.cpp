#include "settings/frame/album_lines.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"

#include <QLineEdit>

namespace {

int lineOf(const QComboBox& chooser, const QString& table) {
    int line = chooser.count() - 1;
    while (line >= 0 && tableOfLine(chooser.itemText(line)).compare(table, Qt::CaseInsensitive) != 0) --line;
    return line;
}

/// Titles can be alike, and longer than the list is wide: the tool tip has the table's name and the whole title.
void add(QComboBox& chooser, const QString& line) {
    chooser.addItem(line);
    chooser.setItemData(chooser.count() - 1, line, Qt::ToolTipRole);
}

void chooseNone(QComboBox& chooser) {
    chooser.setCurrentIndex(-1);
    if (chooser.isEditable()) chooser.clearEditText();
}

}  // namespace

void fillAlbumLines(QComboBox& chooser, const Database& catalogue) {
    chooser.clear();
    for (const Album& album : allAlbums(catalogue)) add(chooser, albumLine(album.table, album.title));
    chooseNone(chooser);
}

void addAlbumLine(QComboBox& chooser, const QString& line) {
    removeAlbumLine(chooser, tableOfLine(line));
    const int index = chooser.currentIndex();
    const QString text = chooser.currentText();
    add(chooser, line);
    chooser.setCurrentIndex(index);  // the first line of an empty list would choose itself
    if (chooser.isEditable()) chooser.setEditText(text);
    showBeginning(chooser);
}

void addMissingAlbumLines(QComboBox& chooser, const Database& catalogue) {
    for (const Album& album : allAlbums(catalogue)) {
        const QString line = albumLine(album.table, album.title);
        if (chooser.findText(line) < 0) addAlbumLine(chooser, line);
    }
}

void removeAlbumLine(QComboBox& chooser, const QString& table) {
    const int line = lineOf(chooser, table);
    if (line < 0) return;
    // The line goes without its neighbour taking its place as the chosen one.
    if (tableOfLine(chooser.currentText()).compare(table, Qt::CaseInsensitive) == 0) chooseNone(chooser);
    chooser.removeItem(line);
}

QString offeredTable(const QComboBox& chooser, const QString& text) {
    const int line = lineOf(chooser, tableOfLine(text));
    return line < 0 ? QString() : tableOfLine(chooser.itemText(line));
}

void chooseAlbumLine(QComboBox& chooser, const QString& table) {
    const int line = lineOf(chooser, table);
    if (line < 0)
        chooseNone(chooser);
    else
        chooser.setCurrentIndex(line);
    showBeginning(chooser);
}

void showBeginning(QComboBox& chooser) {
    if (chooser.isEditable()) chooser.lineEdit()->setCursorPosition(0);
}
