#pragma once

#include "../support/found.h"
#include "../support/recording_windows.h"
#include "../support/run_end.h"
#include "../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "start/settings_window.h"

#include <QtWidgets/QtWidgets>

/// Changes one column of the first row of a SELECT.
inline void putValue(const QString& source, const QString& column, const FieldValue& value) {
    changeRow(source, {{column, value}});
}

/// The texts of a column, Nulls empty.
inline QStringList columnOf(const QString& source, const QString& column) {
    QStringList values;
    for (Recordset rows = mekTp::catalogue.OpenRecordset(source); !rows.Eof(); rows.MoveNext())
        values << rows.Fields(column).Value().textOr();
    return values;
}

inline QString valueOf(const QString& source, const QString& column) {
    return columnOf(source, column).value(0);
}

inline bool hasTable(const QString& table) {
    return mekTp::catalogue.TableDefs().contains(table);
}

/// An album as another program, or an older catalogue, may have left it.
inline void addAlbum(int number, const QString& table, const QString& title) {
    using namespace Qt::Literals::StringLiterals;
    mekTp::catalogue.Execute(createAlbumSql(table));
    addRow(u"tcbm"_s, {{u"序号"_s, number}, {u"表名"_s, table}, {u"标题"_s, title}});
}

inline QStringList linesOf(const ListBox& list) {
    QStringList lines;
    for (int i = 0; i < list.ListCount(); ++i) lines << list.List(i);
    return lines;
}

/// The settings window, shown on the sample catalogue, with its message boxes answered and kept.
class SettingsWindow {
  public:
    SettingsWindow() {
        chooseInBoxesWith([this](const BoxText& box) {
            boxes << box;
            if (!answer) return box.onEscape;
            return passesOver && box.answers.contains(QStringLiteral("跳过并继续")) ? 1 : 0;
        });
        answerFileDialogsWith([this](const FileQuestion&) { return picked; });
        open();
    }
    ~SettingsWindow() {
        answerBoxesWith({});
        answerFileDialogsWith({});
    }

    /// Opens the window anew, as if the program had been left and come back to.
    void open() {
        form = makeSettingsWindow(windows);
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }

    template <typename Control>
    Control& get(const QString& name) const {
        return *found<Control>(form.get(), name);
    }

    QPushButton& button(const QString& name) const { return get<QPushButton>(name); }
    QString caption(const QString& buttonName) const { return button(buttonName).text(); }
    bool isEnabled(const QString& buttonName) const { return button(buttonName).isEnabled(); }
    /// A click that begins a run waits for its end; a press does not.
    template <typename... Names>
    void click(const Names&... names) const {
        ((press(names), waitForRun(form.get())), ...);
    }
    void press(const QString& name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }

    /// The open report of a run: its outcome, and its lines with bars between their parts. Nothing when none is open.
    QStringList reported() const {
        const auto* window = form->findChild<QDialog*>(QStringLiteral("frmBg"));
        if (window == nullptr) return {};
        QStringList lines{found<QLabel>(window, QStringLiteral("lblBg"))->text()};
        const QAbstractItemModel* list = found<QTableView>(window, QStringLiteral("lstBg"))->model();
        for (int row = 0; row < list->rowCount(); ++row) {
            QStringList parts;
            for (int part = 0; part < 3; ++part) parts << list->index(row, part).data().toString();
            lines << parts.join(u'|');
        }
        return lines;
    }
    /// The same, and closes it by its key.
    QStringList report() const {
        const QStringList lines = reported();
        if (QPointer<QDialog> window = form->findChild<QDialog*>(QStringLiteral("frmBg"))) {
            QTest::keyClick(window, Qt::Key_Escape);
            QCoreApplication::sendPostedEvents(window, QEvent::DeferredDelete);
            form->activateWindow();
        }
        return lines;
    }
    void clickOption(const QString& name) const {
        auto& option = get<QRadioButton>(name);
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }
    TextBox& box(const QString& name) const { return get<TextBox>(name); }
    QString text(const QString& name) const { return box(name).text(); }
    QString label(const QString& name) const { return get<QLabel>(name).text(); }
    TabControl& tabs() const { return get<TabControl>(QStringLiteral("sstFz")); }

    Grid& grid() const { return get<Grid>(QStringLiteral("msgBm")); }
    void clickRow(int row) const {
        const QRect cell = grid().visualRect(grid().model()->index(row, 1));
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
    }

    void goToAnotherPageAndBack() const {
        const int here = tabs().currentIndex();
        tabs().setCurrentIndex(here == 1 ? 2 : 1);
        tabs().setCurrentIndex(here);
    }

    /// Whether leaving the page would give up unfinished work: the strip warns exactly then.
    bool isPending() {
        const QList<BoxText> before = std::exchange(boxes, {});
        const bool answerBefore = std::exchange(answer, false);
        Q_EMIT tabs().mouseMovedAt(tabs().currentIndex() == 1 ? 500 : 1500, 100);
        answer = answerBefore;
        return !std::exchange(boxes, before).isEmpty();
    }

    void choose(const QString& combo, const QString& start) const {
        auto& chooser = get<QComboBox>(combo);
        const int index = chooser.findText(start, Qt::MatchStartsWith);
        QVERIFY2(index >= 0, qPrintable(start));
        chooser.setCurrentIndex(index);
        Q_EMIT chooser.activated(index);
    }

    QStringList lines(const QString& combo) const {
        const auto& chooser = get<QComboBox>(combo);
        QStringList all;
        for (int i = 0; i < chooser.count(); ++i) all << chooser.itemText(i);
        return all;
    }

    /// Answers every box with one of its answers, by its place.
    void answerWith(int place) {
        chooseInBoxesWith([this, place](const BoxText& box) {
            boxes << box;
            return box.answers.size() > place ? place : 0;
        });
    }

    /// The texts of the boxes since the last call.
    QStringList said() {
        QStringList texts;
        for (const BoxText& one : std::exchange(boxes, {})) texts << one.text;
        return texts;
    }

    SampleCatalogue catalogue;
    RecordingWindows windows;
    QList<BoxText> boxes;
    bool answer = true;
    bool passesOver = false;  ///< Runs go on after a failure.
    QString picked;           ///< What file dialogs answer.
    std::unique_ptr<frmSz> form;
};
