#pragma once

#include "platform/desktop/placing.h"
#include "settings_window.h"

/// The settings window with the page 图册编辑 in front and an album chosen.
class EditingWindow : public SettingsWindow {
  public:
    explicit EditingWindow(const QString& album = QStringLiteral("tc01")) {
        tabs().setCurrentIndex(2);
        if (!album.isEmpty()) choose(QStringLiteral("cboBm"), album);
        said();
    }

    DataControl& datBj() const { return get<DataControl>(QStringLiteral("datBj")); }
    ListBox& codes() const { return get<ListBox>(QStringLiteral("lstBh")); }
    QRadioButton& option(const QString& name) const { return get<QRadioButton>(name); }

    QPoint codePlace(const QString& code) const {
        const QListWidgetItem* line = codes().findItems(code + u' ', Qt::MatchStartsWith).value(0);
        if (line == nullptr) qFatal("no code %s", qPrintable(code));
        return codes().visualItemRect(line).center();
    }
    void clickCode(const QString& code) const {
        QTest::mouseClick(codes().viewport(), Qt::LeftButton, {}, codePlace(code));
    }
    void doubleClickCode(const QString& code) const {
        // As a person does it: the second press comes after a whole click.
        clickCode(code);
        QTest::mouseDClick(codes().viewport(), Qt::LeftButton, {}, codePlace(code));
    }

    /// Opens the panel of pictures, loads a new one there and takes it; the date of the record stays.
    void takeNewPicture() {
        picked = catalogue.file(QStringLiteral("新.jpg"));
        writePicture(picked, {200, 100}, Qt::blue);
        if (isEnabled(QStringLiteral("cmdCk(2)"))) click(QStringLiteral("cmdCk(2)"));
        click(QStringLiteral("cmdAz"));
        answer = false;
        click(QStringLiteral("cmdAq"));
        answer = true;
    }

    /// 序号 of the records in the grid.
    QStringList numbers() const {
        QStringList all;
        for (int row = 0; row < grid().model()->rowCount(); ++row) all << grid().cellText(row, 0);
        return all;
    }

    /// The columns that are edited, of the record whose remark is `remark`.
    static QString record(const QString& remark) {
        using namespace Qt::Literals::StringLiterals;
        const QString source = u"SELECT * FROM tc01 WHERE 备注 = "_s + quoted(remark);
        QStringList values;
        for (const QString& column : {u"序号"_s, u"编号"_s, u"规格"_s, u"日期"_s}) values << valueOf(source, column);
        return values.join(u'|');
    }
};

/// Runs a statement on the catalogue's file from outside of the program.
inline void runOutside(const QString& sql) {
    QProcess shell;
    shell.start(QStringLiteral("sqlite3"), {mekTp::cataloguePath(), sql});
    QVERIFY(shell.waitForFinished());
    QVERIFY2(shell.exitCode() == 0, shell.readAllStandardError().constData());
}
