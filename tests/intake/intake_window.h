#pragma once

#include "../settings/settings_window.h"
#include "intake/browser_panel.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_lists.h"

/// The settings window on the page 图片录入, with a folder of pictures of its own.
class IntakeWindow : public SettingsWindow {
  public:
    IntakeWindow() { tabs().setCurrentIndex(1); }

    void add(const QString& name, QSize pixels = {40, 30}, const char* format = "JPG") const {
        writePicture(path(name), pixels, Qt::darkGreen, format);
    }
    void addBytes(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QString path(const QString& name) const { return pictures.filePath(name); }
    QByteArray bytesOf(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Album, source, way of adding and folder, as a person chooses them.
    void prepare(const QString& album, int way) const {
        choose(QStringLiteral("cboBm"), album);
        option(QStringLiteral("optYl(0)"));
        option(QStringLiteral("optCz(%1)").arg(way));
        get<DirList>(QStringLiteral("dir1")).setPath(pictures.path());
    }
    /// Types into the chooser of albums.
    void typeAlbum(const QString& text, bool enter) const {
        auto& chooser = get<QComboBox>(QStringLiteral("cboBm"));
        chooser.lineEdit()->selectAll();
        QTest::keyClicks(&chooser, text);
        if (enter) QTest::keyClick(&chooser, Qt::Key_Return);
    }
    void option(const QString& name) const {
        QTest::mouseClick(&get<QRadioButton>(name), Qt::LeftButton, {}, QPoint(8, 10));
    }
    FileList& files() const { return get<FileList>(QStringLiteral("fil1")); }
    QString echo() const { return get<CaptionBox>(QStringLiteral("txtMl")).text(); }

    void clickFile(const QString& name, Qt::KeyboardModifiers keys = {}) const {
        const auto found = files().findItems(name, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(name));
        files().scrollToItem(found.front());
        QTest::mouseClick(files().viewport(), Qt::LeftButton, keys, files().visualItemRect(found.front()).center());
    }
    void enterAll() const {
        click(QStringLiteral("cmdQx"));
        click(QStringLiteral("cmdLr"));
    }

    QTemporaryDir pictures;
};
