#pragma once

#include "platform/desktop/list_box.h"

#include <QComboBox>
#include <functional>

/// As people sort: 2 before 10.
void sortNaturally(QStringList& names);

/// The places where folders begin: the root, the home folder and mounted media, or the drives of the platform.
class DriveList : public QComboBox {
    Q_OBJECT

  public:
    explicit DriveList(QWidget* parent = nullptr);

    /// The folder to show: the one of the last `setDrive`, or the place itself after the user has chosen one. So a
    /// folder list that follows `changed` keeps its folder when that is in another place.
    QString Drive() const { return folder_; }
    /// Chooses the place that contains a path.
    void setDrive(const QString& path);

  Q_SIGNALS:
    void changed();  ///< By the user or by `setDrive`, only when the place differs.

  protected:
    void showPopup() override;  ///< Looks for media that were mounted meanwhile.

  private:
    void fill();
    int placeOf(const QString& path) const;
    void enterChosenPlace();
    QString folder_;
};

/// The folders from the root down to the present one, and the folders in it. A click marks a line; a double click or
/// Enter goes there.
class DirList : public ListBox {
    Q_OBJECT

  public:
    explicit DirList(QWidget* parent = nullptr);

    const QString& Path() const { return path_; }
    /// Throws `Error` when the folder cannot be read.
    void setPath(const QString& path);
    /// Reads the present folder again.
    void refresh();

  Q_SIGNALS:
    void changed();  ///< Another folder is the present one.
    void clickedLine();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fill(const QString& path, const QStringList& folders);
    void enter(const QListWidgetItem* line);
    void showWay();
    int ownLine_ = 0;
    QString path_;
};

/// The files of a folder whose names match a pattern ("*.jpg;*.bmp", case ignored), sorted as people sort (2 before
/// 10). Several can be selected with Ctrl and Shift.
class FileList : public ListBox {
    Q_OBJECT

  public:
    explicit FileList(QWidget* parent = nullptr);

    const QString& Path() const { return path_; }
    void setPath(const QString& path);
    const QString& Pattern() const { return pattern_; }
    /// Tells of a path whether the file is listed.
    using Choice = std::function<bool(const QString& path)>;
    /// With a choice it counts besides the pattern.
    void setPattern(const QString& pattern, Choice isListed = {});
    /// Shows these instead, which stand in this order and are paths from the folder, until the next change of folder or
    /// pattern.
    void showFiles(const QStringList& files);

    QString FileName() const;  ///< The focused entry, empty when there is none.
    bool Selected(int index) const;
    void setSelected(int index, bool on);  ///< Runs the same event as a click does.
    void selectAllEntries(bool on);        ///< All at once; one event.

  Q_SIGNALS:
    void selectionClicked();  ///< The selection changed, by the user or by the program.
    void pathChanged();

  private:
    void refill();
    QString path_;
    QString pattern_ = QStringLiteral("*");
    Choice isListed_;
};
