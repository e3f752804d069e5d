#pragma once

#include "settings/frame/page_layout.h"

#include <QObject>
#include <functional>

class QComboBox;
class QLabel;
class TabControl;

/// The editable chooser of albums, cboBm. An album is chosen from its list, or by its table's name or its whole line
/// that is typed and confirmed with Enter. While anything else is being typed, none is. Asks before an album is left,
/// and shows it again when it is not.
class AlbumEntry : public QObject {
    Q_OBJECT

  public:
    explicit AlbumEntry(TabControl* sstFz);

    /// Not set: always.
    std::function<bool()> mayLeave;

    /// Lists the albums of the catalogue; none is chosen.
    void fill();
    void addLine(const QString& albumLine);
    void removeLine(const QString& table);
    bool hasLines() const;

    /// Puts the chooser on a page, or away where the page has none.
    void putOn(int page, const std::optional<PageLayout::Chooser>& place);
    void setEnabled(bool on);

    /// Table of the chosen album; empty where none is chosen.
    const QString& table() const { return table_; }
    /// What the box shows: the line of the chosen album, or what is being typed.
    QString line() const;

    /// Takes the text in the box for a choice, without asking.
    void take();
    /// The same with the line of a table.
    void choose(const QString& table);

  Q_SIGNALS:
    void chosen();
    void lost();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void choose();
    void enter();
    void typed();
    void lose();
    bool leaves();

    TabControl* sstFz_;
    QLabel* lblXc;     ///< Caption before the box.
    QComboBox* cboBm;  ///< The box with the lines of all albums.
    QString table_;
};
