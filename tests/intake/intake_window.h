#pragma once

#include "../settings/settings_window.h"
#include "../support/stored_records.h"
#include "intake/browsing/browser_panel.h"
#include "platform/desktop/file_lists.h"

/// A column of the record of tc01 with that 序号.
inline QString ofNumber(int number, const QString& column) {
    return valueOf(QStringLiteral("SELECT * FROM tc01 WHERE 序号 = %1").arg(number), column);
}

/// The message at the end of an intake.
inline QString entered(int count) {
    return QStringLiteral("图片录入完成！  共录入：%1张").arg(count);
}

/// How controls are to look. Their names stand with blanks between them.
struct Look {
    QString shown = {};
    QString hidden = {};
    QString enabled = {};
    QString disabled = {};
    QString unchecked = {};
    QList<std::pair<QString, QString>> texts = {};  ///< of labels, buttons and boxes of text
};

/// The settings window on the page 图片录入, with a folder of pictures of its own.
class IntakeWindow : public SettingsWindow {
  public:
    IntakeWindow() { tabs().setCurrentIndex(1); }

    void add(const QString& name, QSize pixels = {40, 30}, const char* format = "JPG") const {
        writePicture(path(name), pixels, Qt::darkGreen, format);
    }
    void addAll(const QStringList& names, QSize pixels = {40, 30}) const {
        for (const QString& name : names) add(name, pixels);
    }
    void addBytes(const QString& name, const QByteArray& bytes) const { writeFile(path(name), bytes); }
    /// A picture whose name is no text to the system, by the bytes of the name.
    void addOdd(const QByteArray& name, const char* format = "JPG") const {
        add(QStringLiteral("new.pic"), {60, 45}, format);
        const QByteArray folder = QFile::encodeName(pictures.path()) + '/';
        QVERIFY(rename((folder + "new.pic").constData(), (folder + name).constData()) == 0);
    }
    QString path(const QString& name) const { return pictures.filePath(name); }
    QByteArray bytesOf(const QString& name) const { return contentOf(path(name)); }

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
    /// Goes to a new folder within that of the pictures.
    void enterFolder(const QString& name) const {
        QDir(pictures.path()).mkdir(name);
        get<DirList>(QStringLiteral("dir1")).setPath(path(name));
    }
    /// By a double click on its line.
    void enterFolderByHand(const QString& name) const {
        auto& folders = get<DirList>(QStringLiteral("dir1"));
        QListWidgetItem* line = folders.findItems(name, Qt::MatchExactly).value(0);
        QVERIFY2(line != nullptr, qPrintable(name));
        folders.scrollToItem(line);
        const QPoint at = folders.visualItemRect(line).center();
        QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(folders.viewport(), Qt::LeftButton, {}, at);
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
    /// Enters the whole folder; gives what was said after the question.
    QStringList enterInto(const QString& album, int way) {
        prepare(album, way);
        enterAll();
        return said().mid(1);
    }

    bool shown(const QString& name) const { return get<QWidget>(name).isVisible(); }
    bool enabled(const QString& name) const { return get<QWidget>(name).isEnabled(); }
    bool checked(const QString& name) const { return get<QRadioButton>(name).isChecked(); }
    QString caption(const QString& name) const { return button(name).text(); }
    QString hint() const { return label(QStringLiteral("lblTs")).mid(5); }

    /// Fails at the first control that is in another state.
    void expect(const Look& look) const {
        const auto each = [this](const QString& names, const std::function<bool(const QWidget&)>& isAsTold) {
            for (const QString& name : names.split(u' ', Qt::SkipEmptyParts))
                QVERIFY2(isAsTold(get<QWidget>(name)), qPrintable(name));
        };
        each(look.shown, [](const QWidget& control) { return control.isVisible(); });
        each(look.hidden, [](const QWidget& control) { return !control.isVisible(); });
        each(look.enabled, [](const QWidget& control) { return control.isEnabled(); });
        each(look.disabled, [](const QWidget& control) { return !control.isEnabled(); });
        each(look.unchecked, [](const QWidget& control) { return !control.property("checked").toBool(); });
        for (const auto& [name, text] : look.texts) QCOMPARE(get<QWidget>(name).property("text").toString(), text);
    }

    QTemporaryDir pictures;
};
