#pragma once

#include <QAction>
#include <QMenuBar>
#include <QStringList>

/// Tool tips of albums in a menu: names of the tables for titles that occur more than once, since a choice of them
/// always opens the first. Empty for any other title.
QStringList tipsOfEqualTitles(const QStringList& titles, const QStringList& tables);

/// The menu `mnuDk`: the albums, of which the open one is checked, and the item that closes it.
class AlbumMenu : public QObject {
    Q_OBJECT

  public:
    explicit AlbumMenu(QMenuBar* bar);

    /// Fills the menu with the albums. Without any it keeps the preset one.
    void fill(QStringList titles, const QStringList& tables);
    int count() const { return int(mnuCd.size()); }
    QString title(int index) const { return mnuCd[index]->text().replace(QStringLiteral("&&"), QStringLiteral("&")); }

    /// Checks the open album. -1: none is open; a number behind the last: the open album is not in the menu.
    void showOpen(int index);

  Q_SIGNALS:
    void chosen(int index);
    void closeChosen();

  private:
    QMenu* mnuDk;           ///< The menu.
    QList<QAction*> mnuCd;  ///< The albums.
    QAction* mnuTg;         ///< Closes the open album.
};
