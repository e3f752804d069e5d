#include "platform/desktop/file_dialogs.h"

#include "desktop.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList shownNames(const QFileDialog& dialog) {
    const auto* list = found<QListView>(&dialog, u"listView"_s);
    QStringList names;
    for (int i = 0; i < list->model()->rowCount(list->rootIndex()); ++i)
        names.append(list->model()->index(i, 0, list->rootIndex()).data().toString());
    names.sort();
    return names;
}

/// The widget's own accept is protected; Enter in the name box does the same.
void typeName(QFileDialog& dialog, const QString& name) {
    auto* box = found<QLineEdit>(&dialog, u"fileNameEdit"_s);
    box->setText(name);
    QTest::keyClick(box, Qt::Key_Return);
}

class TestFileDialogs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() {
        answerFileDialogsWith({});
        answerBoxesWith({});
    }

    void openingShowsFilesOfEitherCase() {
        const QTemporaryDir folder;
        for (const auto& name : {u"a.jpg"_s, u"B.JPG"_s, u"c.Bmp"_s, u"d.txt"_s}) writeFile(folder.filePath(name), "x");
        onOpen<QFileDialog>([&](QFileDialog& dialog) {
            QTRY_COMPARE(shownNames(dialog), (QStringList{u"B.JPG"_s, u"a.jpg"_s}));
            QCOMPARE(dialog.nameFilters(), (QStringList{u"BMP文件 (*.bmp)"_s, u"JPG文件 (*.jpg)"_s}));
            QCOMPARE(dialog.selectedNameFilter(), dialog.nameFilters().last());
            QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
            typeName(dialog, u"B.JPG"_s);
        });
        QCOMPARE(askOpenFile(nullptr, u"打开"_s, u"BMP文件|*.bmp|JPG文件|*.jpg"_s, folder.path(), 2),
                 folder.filePath(u"B.JPG"_s));
        onOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        QVERIFY(askOpenFile(nullptr, u"打开"_s, u"JPG文件|*.jpg"_s).isEmpty());
    }

    void aPatternIsWrittenOnce() {
        onOpen<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.nameFilters(), (QStringList{u"BMP文件(*.bmp)"_s, u"JPG文件 (*.jpg *.jpeg)"_s}));
            dialog.reject();
        });
        askSaveFile(nullptr, u"保存"_s, u"BMP文件(*.bmp)|*.bmp|JPG文件|*.jpg;*.jpeg"_s);
        const QTemporaryDir folder;
        onOpen<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, u"海"_s); });
        QCOMPARE(askSaveFile(nullptr, u"保存"_s, u"BMP文件(*.bmp)|*.bmp"_s, folder.path()),
                 folder.filePath(u"海.bmp"_s));
    }

    void savingAddsTheSuffixOfTheChosenFilter() {
        for (const auto& [filter, typed, saved] : {std::tuple{QString(), u"海"_s, u"海.bmp"_s},
                                                   {u"JPG文件 (*.jpg)"_s, u"海"_s, u"海.jpg"_s},
                                                   {QString(), u"海.jpeg"_s, u"海.jpeg"_s}}) {
            const QTemporaryDir folder;
            onOpen<QFileDialog>([&filter = filter, &typed = typed](QFileDialog& dialog) {
                if (!filter.isEmpty()) {
                    dialog.selectNameFilter(filter);
                    Q_EMIT dialog.filterSelected(filter);
                }
                typeName(dialog, typed);
            });
            QCOMPARE(askSaveFile(nullptr, u"保存"_s, u"BMP文件|*.bmp|JPG文件|*.jpg"_s, folder.path()),
                     folder.filePath(saved));
        }
    }

    void savingAsksBeforeItOverwrites() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"海.jpg"_s);
        writeFile(path, "x");
        for (const bool overwrite : {true, false}) {
            QStringList asked;
            answerBoxesWith([&](const BoxText& box) {
                asked.append(box.text);
                return overwrite;
            });
            onOpen<QFileDialog>([&](QFileDialog& dialog) {
                typeName(dialog, u"海"_s);
                if (dialog.isVisible()) dialog.reject();
            });
            QCOMPARE(askSaveFile(nullptr, u"保存"_s, u"JPG文件|*.jpg"_s, folder.path()), overwrite ? path : QString());
            QCOMPARE(asked.size(), 1);
            QVERIFY(asked.first().contains(path));
        }
    }

    void fileThatIsNotThereYet() {
        const QTemporaryDir folder;
        writeFile(folder.filePath(u"旧.mdb"_s), "x");
        for (const auto& [typed, path] :
             {std::pair{u"新.mdb"_s, u"新.mdb"_s}, {u"新"_s, u"新.mdb"_s}, {u"旧.mdb"_s, u"旧.mdb"_s}}) {
            onOpen<QFileDialog>([&typed = typed](QFileDialog& dialog) {
                typeName(dialog, typed);
                if (dialog.isVisible()) dialog.reject();
            });
            QCOMPARE(askFilePath(nullptr, u"路径"_s, u"MDB文件|*.mdb"_s, folder.path()), folder.filePath(path));
        }
    }

    void proposalIsTypedIn() {
        const QTemporaryDir folder;
        onOpen<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(found<QLineEdit>(&dialog, u"fileNameEdit"_s)->text(), u"像.jpg"_s);
            dialog.reject();
        });
        askSaveFile(nullptr, u"保存"_s, u"JPG文件|*.jpg"_s, folder.filePath(u"像.jpg"_s));
    }

    void answersOfATestGoBeforeTheDialog() {
        std::optional<FileQuestion> question;
        answerFileDialogsWith([&](const FileQuestion& asked) {
            question = asked;
            return u"/tmp/x.bmp"_s;
        });
        QCOMPARE(askSaveFile(nullptr, u"存"_s, u"BMP文件|*.bmp"_s, u"x"_s), u"/tmp/x.bmp"_s);
        QVERIFY(question.has_value() && question->saving);
        QCOMPARE(question->proposal, u"x"_s);
    }
};

const Registered<TestFileDialogs> registered;

}  // namespace

#include "file_dialogs_test.moc"
