#pragma once

#include "database_window.h"

/// The settings window on the page 图片转存 with an album chosen. The folder `pictures` and the file 源库.mdb in it
/// serve as targets.
class TransferWindow : public DatabaseWindow {
  public:
    explicit TransferWindow(const QString& album = QStringLiteral("tc01")) {
        passesOver = true;
        tabs().setCurrentIndex(3);
        if (!album.isEmpty()) choose(QStringLiteral("cboBm"), album);
        said();
    }

    QStringList chosen() const { return linesOf(QStringLiteral("lstSu")); }
    void chooseRows(const QList<int>& rows) const {
        for (const int row : rows) clickRow(row);
    }
    void dropLine(const QString& number) const { clickLine(QStringLiteral("lstSu"), number); }

    /// The folder `pictures`; then clicks a button.
    void chooseFolder(const QString& start = {}) const {
        option(QStringLiteral("optMb(0)"));
        get<DirList>(QStringLiteral("dir1")).setPath(QFileInfo(pictures.path()).path());
        get<DirList>(QStringLiteral("dir1")).setPath(pictures.path());
        click(QStringLiteral("cmdMq"));
        if (!start.isEmpty()) click(start);
    }
    /// A file of the folder `pictures`, or one with its whole path.
    void chooseTarget(const QString& file = QStringLiteral("源库.mdb")) const {
        const QFileInfo target(QDir(pictures.path()), file);
        option(QStringLiteral("optMb(1)"));
        get<DirList>(QStringLiteral("dir1")).setPath(target.path());
        clickFile(target.fileName());
    }
    /// File, table and the mapping by position; the panel is closed.
    void chooseTable(const QString& table, const QString& file = QStringLiteral("源库.mdb")) const {
        chooseTarget(file);
        clickLine(QStringLiteral("lstSb"), table);
        click(QStringLiteral("cmdQx"));
        click(QStringLiteral("cmdLr"));
    }
    /// Types over what is selected, as a person or an input method does.
    void typeName(const QString& name) const {
        TextBox& txtWm = box(QStringLiteral("txtWm"));
        QTRY_VERIFY(txtWm.hasFocus());
        QInputMethodEvent typed;
        typed.setCommitString(name);
        QCoreApplication::sendEvent(&txtWm, &typed);
    }
    void giveName(const QString& name) const {
        typeName(name);
        confirmName();
    }
    /// Waits until the next name is asked for, or this one again.
    void confirmName() const {
        click(QStringLiteral("cmdWm(0)"));
        waitForName();
    }
    void pressKey(Qt::Key key) const {
        QTest::keyClick(&box(QStringLiteral("txtWm")), key);
        if (key == Qt::Key_Return && !text(QStringLiteral("txtWm")).isEmpty()) waitForName();
    }
    void waitForName() const { QTRY_VERIFY(!shown(QStringLiteral("fraWm")) || isEnabled(QStringLiteral("cmdWm(0)"))); }

    QStringList exported() const { return QDir(pictures.path()).entryList({QStringLiteral("*.jpg")}, QDir::Files); }
    /// Files that no one has asked for.
    QStringList strayFiles() const {
        return QDir(pictures.path()).entryList({QStringLiteral("*.tmp"), QStringLiteral("*.part")}, QDir::Files);
    }
    bool pageFree() {
        answer = false;
        Q_EMIT tabs().mouseMovedAt(1500, 100);
        answer = true;
        return said().isEmpty();
    }
};
