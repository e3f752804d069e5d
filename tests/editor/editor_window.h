#pragma once

#include "../support/found.h"
#include "../support/recording_windows.h"
#include "../support/sample_catalogue.h"
#include "editor/document/hints.h"
#include "editor/frm_cl.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QtWidgets/QtWidgets>

/// The editor on a small catalogue, with its controls by name. Message boxes are collected instead of shown and
/// answered with `reply` where they have that answer, otherwise with `answer`; file dialogs give `file`.
class EditorWindow {
  public:
    EditorWindow() {
        chooseInBoxesWith([this](const BoxText& box) {
            boxes << box;
            const auto given = static_cast<int>(box.answers.indexOf(reply));
            return given >= 0 ? given : answer ? 0 : box.onEscape;
        });
        answerFileDialogsWith([this](const FileQuestion& question) {
            questions << question;
            return file;
        });
        window = std::make_unique<frmCl>(windows);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    ~EditorWindow() {
        window.reset();
        answerBoxesWith({});
        answerFileDialogsWith({});
    }

    template <typename Control = QWidget>
    Control* find(const QString& name) const {
        return found<Control>(window.get(), name);
    }
    QAction* menu(const QString& name) const { return find<QAction>(name); }
    QToolButton* key(const QString& key) const { return find<QToolButton>(QStringLiteral("tlb1:") + key); }
    WorkSurface& picYu() const { return *find<WorkSurface>(QStringLiteral("picYu")); }
    WorkSurface& picMb() const { return *find<WorkSurface>(QStringLiteral("picMb")); }
    TextBox& box(const QString& name) const { return *find<TextBox>(name); }
    QSize size() const { return picYu().size(); }
    QString hint() const { return box(QStringLiteral("txtTs")).text(); }
    QString caption() const { return window->windowTitle(); }
    bool shows(const QString& name) const {
        const auto* control = find(name);
        return control != nullptr && control->isVisible();
    }
    QString lastBox() const { return boxes.isEmpty() ? QString() : boxes.last().title + u'|' + boxes.last().text; }

    void press(const QString& name) const { QTest::mouseClick(key(name), Qt::LeftButton); }
    void trigger(const QString& name) const { menu(name)->trigger(); }
    void undo() const { press(QStringLiteral("cx")); }
    void click(const QString& name) const { QTest::mouseClick(find(name), Qt::LeftButton); }
    /// Types into the operation dialog and confirms.
    void enter(const QString& text) const {
        QTest::keyClicks(&box(QStringLiteral("txtCq")), text);
        QTest::keyClick(&box(QStringLiteral("txtCq")), Qt::Key_Return);
    }
    void scale(const QString& factor) const {
        press(QStringLiteral("sf"));
        enter(factor);
    }
    void rotate(const QString& angle) const {
        press(QStringLiteral("xz"));
        enter(angle);
    }
    void crop(const QRect& pixels) const {
        press(QStringLiteral("cj"));
        select(pixels.topLeft(), pixels.topLeft() + QPoint(pixels.width(), pixels.height()));
        click(QStringLiteral("cmdCq(0)"));
    }
    /// Ctrl and a key.
    void zoom(Qt::Key key) const { QTest::keyClick(window.get(), key, Qt::ControlModifier); }
    void clickRow(int row) const {
        auto* grid = find<Grid>(QStringLiteral("msgBm"));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualRect(grid->model()->index(row, 0)).center());
    }
    void select(QPoint from, QPoint to) const {
        QTest::mousePress(&picYu(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&picYu(), to);
        QTest::mouseRelease(&picYu(), Qt::LeftButton, {}, to);
    }

    /// Opens a picture file of that size whose quarters are red, green, blue and yellow.
    void open(QSize pixels = {80, 60}) {
        QImage image(pixels, QImage::Format_RGB32);
        const QColor quarters[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};
        for (int y = 0; y < pixels.height(); ++y)
            for (int x = 0; x < pixels.width(); ++x)
                image.setPixelColor(x, y, quarters[(2 * x >= pixels.width()) + 2 * (2 * y >= pixels.height())]);
        file = catalogue.file(QStringLiteral("图.bmp"));
        SavePicture(image, file);
        press(QStringLiteral("wk"));
    }

    /// The mouse on the window itself: it meets what is on top there.
    void mouse(const std::function<void(QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int)>& action,
               QPoint global) const {
        action(window->windowHandle(), Qt::LeftButton, {}, window->mapFromGlobal(global), -1);
    }

    static bool setting(const QString& column) { return fieldOf(QStringLiteral("tcsz"), column).toBool(); }
    static QStringList steps() {
        QStringList numbers;
        Recordset rows = mekTp::catalogue.OpenRecordset(QStringLiteral("tccx"));
        for (; !rows.Eof(); rows.MoveNext()) numbers << rows.Fields(QStringLiteral("编号")).Value().toText();
        return numbers;
    }

    SampleCatalogue catalogue;
    RecordingWindows windows;
    QList<BoxText> boxes;
    QList<FileQuestion> questions;
    bool answer = true;
    QString reply;
    QString file;
    std::unique_ptr<frmCl> window;
};

inline QByteArray beginOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(2) : QByteArray();
}

/// The editor with the picture of `open`.
struct OpenEditor : EditorWindow {
    explicit OpenEditor(QSize pixels = {80, 60}) { open(pixels); }
};
