#pragma once

#include "../support/found.h"
#include "../support/run_end.h"
#include "../support/sample_catalogue.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "start/program.h"

#include <QtWidgets/QtWidgets>

/// The whole program on a small catalogue, worked by clicks on controls by window and name. Message boxes are collected
/// and answered with 确定, file dialogs give `file`.
class ProgramTour {
  public:
    ProgramTour() {
        answerBoxesWith([this](const BoxText& box) {
            said << box.text;
            return true;
        });
        answerFileDialogsWith([this](const FileQuestion&) { return file; });
    }
    ~ProgramTour() {
        program.reset();
        answerBoxesWith({});
        answerFileDialogsWith({});
    }

    void start() const {
        program->start();
        QTRY_VERIFY(window(QStringLiteral("frmTp")));
    }

    static QWidget* window(const QString& name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == name && widget->isVisible()) return widget;
        return nullptr;
    }

    template <typename Control>
    static Control* find(const QString& windowName, const QString& name) {
        return found<Control>(window(windowName), name);
    }

    static void click(const QString& windowName, const QString& name) {
        QTest::mouseClick(find<QWidget>(windowName, name), Qt::LeftButton);
        waitForRun(window(windowName));
    }
    static void option(const QString& windowName, const QString& name) {
        QTest::mouseClick(find<QWidget>(windowName, name), Qt::LeftButton, {}, QPoint(8, 9));
    }
    /// Goes on in another window, which the one that is left makes way for.
    static void leave(const QString& from, const QString& control, const QString& to) {
        click(from, control);
        QTRY_VERIFY(window(to) && !window(from));
    }
    static void trigger(const QString& windowName, const QString& name) { find<QAction>(windowName, name)->trigger(); }

    static void chooseLine(const QString& windowName, const QString& list, const QString& text) {
        auto* box = find<ListBox>(windowName, list);
        const auto lines = box->findItems(text, Qt::MatchExactly);
        QVERIFY2(lines.size() == 1, qPrintable(text));
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, box->visualItemRect(lines.first()).center());
    }
    static void chooseAlbum(const QString& windowName, const QString& line) {
        auto* chooser = find<QComboBox>(windowName, QStringLiteral("cboBm"));
        chooser->setCurrentIndex(chooser->findText(line));
        Q_EMIT chooser->activated(chooser->currentIndex());
    }
    static void clickRow(const QString& windowName, int row) {
        auto* grid = find<QTableView>(windowName, QStringLiteral("msgBm"));
        const QModelIndex cell = grid->model()->index(row, 0);
        grid->scrollTo(cell);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
    }
    static void openInViewer(const QString& title) {
        for (QAction* action : find<QMenu>(QStringLiteral("frmTp"), QStringLiteral("mnuDk"))->actions())
            if (action->text() == title) action->trigger();
    }

    /// An album in the main window, with all its pictures, in that many columns.
    static void showAlbum(const QString& title, int columns) {
        openInViewer(title);
        click(QStringLiteral("frmTp"), QStringLiteral("txtLs"));
        chooseLine(QStringLiteral("frmTp"), QStringLiteral("lstLs"), QStringLiteral("%1列").arg(columns));
        click(QStringLiteral("frmTp"), QStringLiteral("imgAn(0)"));
    }

    static bool anyLabelSays(const QString& windowName, const QString& part) {
        for (const QLabel* label : window(windowName)->findChildren<QLabel*>())
            if (label->text().contains(part)) return true;
        return false;
    }

    SampleCatalogue catalogue;
    QStringList said;
    QString file;
    std::unique_ptr<Program> program = std::make_unique<Program>();
};
