#pragma once

#include <QAction>
#include <QMenuBar>
#include <QStringList>

/// Tool tips of albums in a menu. Of albums with one title the first opens, so their tips name the tables. Empty for
/// any other title.
QStringList tipsOfEqualTitles(const QStringList& titles, const QStringList& tables);

/// The menu `mnuDk`: the albums, of which the open one is checked, and the item that closes it.
class AlbumMenu : public QObject {
    Q_OBJECT

  public:
    explicit AlbumMenu(QMenuBar* bar);

    /// Puts the albums in. Without any the menu keeps the preset one.
    void fill(QStringList titles, const QStringList& tables);
    int count() const { return int(mnuCd.size()); }
    QString title(int index) const { return mnuCd[index]->text().replace(QStringLiteral("&&"), QStringLiteral("&")); }

    /// Checks the open album. -1: none is open; behind the last one: one that the menu does not have.
    void showOpen(int index);

  Q_SIGNALS:
    void chosen(int index);
    void closeChosen();

  private:
    QMenu* mnuDk;           ///< The menu.
    QList<QAction*> mnuCd;  ///< An album each.
    QAction* mnuTg;         ///< Closes the album.
};
