#pragma once

#include "../support/found.h"
#include "../support/recording_windows.h"
#include "../support/sample_catalogue.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/text_box.h"
#include "viewer/frm_tp.h"

#include <QtWidgets/QtWidgets>

/// The main window on a small catalogue, with its controls by name. Message boxes are collected instead of shown.
class ViewerWindow {
  public:
    explicit ViewerWindow(const std::function<void()>& prepare = {}) {
        if (prepare) prepare();
        answerBoxesWith([this](const BoxText& box) {
            boxes << box.title + u'|' + box.text;
            return true;
        });
        window = std::make_unique<frmTp>(windows);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    ~ViewerWindow() {
        window.reset();
        answerBoxesWith({});
    }

    template <typename Control = QWidget>
    Control* find(const QString& name) const {
        return found<Control>(window.get(), name);
    }
    bool has(const QString& name) const { return window->findChild<QWidget*>(name) != nullptr; }
    ImageBox* image(const QString& name) const { return find<ImageBox>(name); }
    TextBox* box(const QString& name) const { return find<TextBox>(name); }
    QToolButton* key(const QString& key) const { return find<QToolButton>(QStringLiteral("tlb1:") + key); }
    QAction* menu(const QString& name) const { return find<QAction>(name); }
    QString keyImage(const QString& name) const { return find<ToolBar>(QStringLiteral("tlb1"))->image(name); }
    QString panel(int number) const { return find<QLabel>(QStringLiteral("sta1:%1").arg(number))->text(); }
    QString text(const QString& name) const { return box(name)->text(); }
    bool shows(const QString& name) const {
        const auto* control = find(name);
        return control != nullptr && control->isVisible();
    }
    /// Number of the picture in a cell, 0 for an empty one.
    int pictureIn(int cell) const {
        const QString tag = image(QStringLiteral("imgXs(%1)").arg(cell))->tag();
        return tag.mid(3, tag.indexOf(u' ') - 3).toInt();
    }

    void press(const QString& name) const { QTest::mouseClick(key(name), Qt::LeftButton); }
    void click(const QString& name) const { QTest::mouseClick(find(name), Qt::LeftButton); }
    void openAlbum(int index) const { menu(QStringLiteral("mnuCd(%1)").arg(index))->trigger(); }
    void chooseButton(int index) const { click(QStringLiteral("imgAn(%1)").arg(index)); }
    void chooseColumns(int columns) const {
        click(QStringLiteral("txtLs"));
        chooseLine(QString::number(columns) + u'列');
    }
    /// Types as people do, Chinese characters through an input method.
    void type(const QString& name, const QString& text) const {
        for (const QChar c : text) {
            if (c.unicode() < 0x80) {
                QTest::keyClick(find(name), c.toLatin1());
                continue;
            }
            QInputMethodEvent commit;
            commit.setCommitString(c);
            QApplication::sendEvent(find(name), &commit);
        }
    }
    void paste(const QString& name, const QString& text) const {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(find(name), Qt::Key_V, Qt::ControlModifier);
    }
    void enter(const QString& name) const { QTest::keyClick(find(name), Qt::Key_Return); }
    void chooseLine(const QString& line) const {
        auto* list = find<ListBox>(QStringLiteral("lstLs"));
        const auto* item = list->findItems(line, Qt::MatchExactly).constFirst();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
    }
    static FieldValue setting(const QString& column) { return fieldOf(QStringLiteral("tcsz"), column); }
    static void setSetting(const QString& column, const FieldValue& value) {
        changeRow(QStringLiteral("tcsz"), {{column, value}});
    }

    bool isEmptyCell(int cell) const {
        return pictureIn(cell) == 0 && image(QStringLiteral("imgXs(%1)").arg(cell))->picture().isNull();
    }

    SampleCatalogue catalogue;
    RecordingWindows windows;
    QStringList boxes;
    std::unique_ptr<frmTp> window;
};

/// Album 旅行 with ten pictures, all chosen, with that many columns.
struct OpenPage : ViewerWindow {
    explicit OpenPage(int columns, const std::function<void()>& prepare = {}) : ViewerWindow(prepare) {
        openAlbum(1);
        chooseColumns(columns);
        chooseButton(0);
    }
    void openPicture(int cell) const {
        QTest::mouseDClick(find(QStringLiteral("imgXs(%1)").arg(cell)), Qt::LeftButton);
    }
};
