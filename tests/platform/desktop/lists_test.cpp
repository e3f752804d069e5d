#include "desktop.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/list_box.h"

#include <sys/stat.h>

#include <set>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList texts(const ListBox& list) {
    QStringList result;
    for (int i = 0; i < list.ListCount(); ++i) result.append(list.List(i));
    return result;
}

QPoint centre(const ListBox& list, int index) {
    return list.visualItemRect(list.item(index)).center();
}

/// With the events of a real one, through the window.
void doubleClick(ListBox& list, int index) {
    QTest::mouseDClick(list.windowHandle(), Qt::LeftButton, {}, list.viewport()->mapTo(&list, centre(list, index)));
}

class TestLists : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { answerBoxesWith({}); }

    void linesAreToldWhenClickedOrEntered() {
        ListBox list;
        list.resize(120, 120);
        for (const auto& text : {u"a"_s, u"b"_s, u"c"_s}) list.AddItem(text);
        QVERIFY(isShown(list));
        QList<int> clicked;
        connect(&list, &ListBox::lineClicked, this, [&](int index) { clicked.append(index); });
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre(list, 1));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(60, 110));  // below the lines
        QCOMPARE(clicked, QList<int>{1});
        list.setCurrentRow(2);
        QCOMPARE(clicked.size(), 1);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(clicked, (QList<int>{1, 2}));

        // A double click is one click.
        QSignalSpy doubled(&list, &QListWidget::itemDoubleClicked);
        doubleClick(list, 0);
        QCOMPARE(doubled.size(), 1);
        QCOMPARE(clicked, (QList<int>{1, 2, 0}));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre(list, 1));
        QCOMPARE(clicked, (QList<int>{1, 2, 0, 1}));
    }

    void linesStandInColumns() {
        for (const int columns : {1, 3, 5}) {
            ListBox list;
            list.setColumns(columns);
            list.resize(211, 137);
            while (list.count() < 12 + 5 * columns) list.AddItem(QString::number(list.count()));
            QVERIFY(isShown(list));
            const auto lefts = [&] {
                std::set<int> all;
                for (int i = 0; i < list.count(); ++i) all.insert(list.visualItemRect(list.item(i)).left());
                return int(all.size());
            };
            const auto isColumnWide = [&] {
                const int width = list.visualItemRect(list.item(0)).width();
                return columns == 1 || std::abs(width - list.viewport()->width() / columns) <= 1;
            };
            QTRY_VERIFY(lefts() >= columns);
            QVERIFY(isColumnWide());
            list.resize(331, 137);
            QTRY_VERIFY(isColumnWide());
        }
    }

    void filesAreMatchedWithoutCaseAndSortedAsPeopleSort() {
        const QTemporaryDir folder;
        for (const auto& name : {u"10.jpg"_s, u"2.JPG"_s, u"1.Bmp"_s, u"x.txt"_s, u"b20.jpg"_s, u"B3.jpg"_s})
            writeFile(folder.filePath(name), "x");
        QDir(folder.path()).mkdir(u"folder.jpg"_s);
        FileList list;
        list.setPattern(u"*.jpg;*.bmp"_s);
        list.setPath(folder.path());
        QCOMPARE(texts(list), (QStringList{u"1.Bmp"_s, u"2.JPG"_s, u"10.jpg"_s, u"B3.jpg"_s, u"b20.jpg"_s}));
        list.setPattern(u"*.TXT"_s);
        QCOMPARE(texts(list), QStringList{u"x.txt"_s});
    }

    void selectionOfFilesIsToldOnceAChange() {
        const QTemporaryDir folder;
        for (int i = 1; i <= 5; ++i) writeFile(folder.filePath(u"%1.jpg"_s.arg(i)), "x");
        FileList list;
        list.setPattern(u"*.jpg"_s);
        list.resize(200, 200);
        QSignalSpy paths(&list, &FileList::pathChanged);
        list.setPath(folder.path());
        list.setPath(folder.path() + u"/"_s);
        QCOMPARE(paths.size(), 1);
        QVERIFY(isShown(list));

        QSignalSpy selection(&list, &FileList::selectionClicked);
        QVERIFY(list.FileName().isEmpty());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre(list, 1));
        QCOMPARE(list.FileName(), u"2.jpg"_s);
        const auto selected = [&] {
            QList<int> lines;
            for (int i = 0; i < 99; ++i)
                if (list.Selected(i)) lines << i;
            return lines;
        };
        const std::pair<std::function<void()>, QList<int>> changes[] = {
            {[&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ShiftModifier, centre(list, 3)); },
             {1, 2, 3}},
            {[&] { list.setSelected(4, true); }, {1, 2, 3, 4}},
            {[&] { list.selectAllEntries(true); }, {0, 1, 2, 3, 4}},
            {[&] { list.selectAllEntries(false); }, {}},
            {[&] { list.selectAllEntries(true); }, {0, 1, 2, 3, 4}}};
        QCOMPARE(selection.size(), 1);
        for (const auto& [change, lines] : changes) {
            selection.clear();
            change();
            QCOMPARE(selection.size(), 1);
            QCOMPARE(selected(), lines);
        }
        // Filling a list anew sends no signal.
        list.setPattern(u"*.jpg;*.bmp"_s);
        QCOMPARE(selection.size(), 1);
        QCOMPARE(selected(), QList<int>{});
    }

    void dirListShowsTheWayAndTheFolders() {
        const QTemporaryDir folder;
        QDir dir(folder.path());
        for (const auto& name : {u"f10"_s, u"f2"_s, u".hidden"_s}) dir.mkdir(name);
        writeFile(folder.filePath(u"file"_s), "x");
        // Links are followed; those to no folder are left out.
        QCOMPARE(mkfifo(qPrintable(folder.filePath(u"pipe"_s)), 0600), 0);
        for (const auto& [name, target] : {std::pair{u"f1"_s, folder.filePath(u"f2"_s)},
                                           {u"f3"_s, folder.filePath(u"pipe"_s)},
                                           {u"f4"_s, u"/dev/zero"_s},
                                           {u"f5"_s, folder.filePath(u"file"_s)}})
            QVERIFY(QFile::link(target, folder.filePath(name)));
        DirList list;
        list.setPath(folder.path());
        const QStringList lines = texts(list);
        QCOMPARE(lines.first(), QDir::rootPath());
        QCOMPARE(lines.mid(lines.size() - 4), (QStringList{dir.dirName(), u"f1"_s, u"f2"_s, u"f10"_s}));
        QCOMPARE(list.item(list.count() - 1)->data(Qt::UserRole).toString(), folder.filePath(u"f10"_s));
        QCOMPARE(list.item(list.count() - 1)->toolTip(), folder.filePath(u"f10"_s));
        QCOMPARE(list.currentItem()->data(Qt::UserRole).toString(), folder.path());
    }

    void namesThatAreNoTextAreShownByStandIns() {
        const QTemporaryDir folder;
        const QByteArray odd = QFile::encodeName(folder.path()) + "/\xD5\xD5\xC6\xAC";  // 照片 in GB 18030
        writeFile(folder.filePath(u"a.jpg"_s), "x");
        writeFile(folder.filePath(u"b.jpg"_s), "x");
        QVERIFY(rename(QFile::encodeName(folder.filePath(u"b.jpg"_s)).constData(), (odd + ".jpg").constData()) == 0);
        QVERIFY(mkdir(odd.constData(), 0700) == 0);
        FileList files;
        files.setPattern(u"*.jpg"_s);
        files.setPath(folder.path());
        QCOMPARE(texts(files), (QStringList{u"照片.jpg"_s, u"a.jpg"_s}));
        QVERIFY(files.item(0)->toolTip().contains(u"代用"_s) && files.item(1)->toolTip().isEmpty());

        // There is a folder of such a name, but it cannot be opened.
        DirList folders;
        folders.resize(300, 400);
        folders.setPath(folder.path());
        QVERIFY(isShown(folders));
        const int last = folders.count() - 1;
        QCOMPARE(folders.item(last)->text(), u"照片"_s);
        QVERIFY(folders.item(last)->toolTip().contains(u"改名"_s));
        doubleClick(folders, last);
        QTest::keyClick(&folders, Qt::Key_End);
        QTest::keyClick(&folders, Qt::Key_Return);
        QCOMPARE(folders.Path(), folder.path());
    }

    void dirListIsEnteredByDoubleClickAndEnter() {
        const QTemporaryDir folder;
        QDir(folder.path()).mkpath(u"a/b"_s);
        DirList list;
        list.resize(300, 400);
        list.setPath(folder.path());
        QVERIFY(isShown(list));
        QSignalSpy changed(&list, &DirList::changed);
        QSignalSpy clicked(&list, &DirList::clickedLine);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre(list, list.count() - 1));
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(list.Path(), folder.path());
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(list.Path(), folder.filePath(u"a"_s));
        doubleClick(list, list.count() - 1);
        QCOMPARE(list.Path(), folder.filePath(u"a/b"_s));
        QCOMPARE(changed.size(), 2);
        doubleClick(list, 0);
        QCOMPARE(list.Path(), QDir::rootPath());
    }

    void refreshKeepsThePathOrFallsBack() {
        const QTemporaryDir folder;
        QDir dir(folder.path());
        dir.mkpath(u"a/b"_s);
        DirList list;
        list.setPath(folder.filePath(u"a/b"_s));
        QSignalSpy changed(&list, &DirList::changed);
        dir.mkpath(u"a/b/new"_s);
        list.refresh();
        QCOMPARE(texts(list).last(), u"new"_s);

        // A folder that cannot be read changes nothing.
        const QStringList before = texts(list);
        try {
            list.setPath(folder.filePath(u"none"_s));
            QFAIL("a missing folder was entered");
        } catch (const Error& error) {
            QVERIFY(error.text().contains(folder.filePath(u"none"_s)));
        }
        QCOMPARE(texts(list), before);
        QCOMPARE(list.Path(), folder.filePath(u"a/b"_s));
        QCOMPARE(changed.size(), 0);

        QVERIFY(QDir(folder.filePath(u"a"_s)).removeRecursively());
        list.refresh();
        QCOMPARE(list.Path(), folder.path());
        QCOMPARE(changed.size(), 1);
    }

    void driveListFollowsAFolderListAcrossPlaces() {
        DriveList drives;
        const QString home = QDir::homePath();
        QVERIFY(drives.findText(u"/"_s) >= 0 && drives.findText(home) >= 0);
        drives.setDrive(home);
        QSignalSpy changed(&drives, &DriveList::changed);
        drives.setDrive(home + u"/deeper"_s);
        QCOMPARE(changed.size(), 0);
        drives.setDrive(u"/usr/share"_s);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(drives.currentText(), u"/"_s);
        QCOMPARE(drives.Drive(), u"/usr/share"_s);
        drives.setCurrentIndex(drives.findText(home));
        QCOMPARE(changed.size(), 2);
        QCOMPARE(drives.Drive(), home);
    }

    /// As one thing: what follows a selection must not be done for each of the files.
    void largeFolderIsSelectedAtOnce() {
        const QTemporaryDir folder;
        for (int i = 0; i < 2000; ++i) writeFile(folder.filePath(u"%1.jpg"_s.arg(i)), "x");
        FileList list;
        list.setPattern(u"*.jpg"_s);
        list.setPath(folder.path());
        const QSignalSpy changed(&list, &QListWidget::itemSelectionChanged);
        list.selectAllEntries(true);
        QCOMPARE(list.ListCount(), 2000);
        QCOMPARE(list.List(1999), u"1999.jpg"_s);
        QVERIFY2(changed.size() <= 1, qPrintable(QString::number(changed.size())));
    }
};

const Registered<TestLists> registered;

}  // namespace

#include "lists_test.moc"
