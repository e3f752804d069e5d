#include "../support/run_all.h"
#include "../support/test_files.h"

#include <QtGui/QtGui>

using namespace Qt::Literals::StringLiterals;

namespace {

QString setting(const char* name) {
    const QString value = qEnvironmentVariable(name);
    if (value.isEmpty()) qFatal("%s is not set: run this test by ctest", name);
    return value;
}

QString source(const QString& name) {
    return setting("LUNQ_PACKAGING") + u'/' + name;
}

/// Runs a program to its end; when it fails, the test prints its output.
int run(const QString& program, const QStringList& arguments, QString* output,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished()) {
        *output = program + u": "_s + process.errorString();
        return -1;
    }
    *output = QString::fromUtf8(process.readAll());
    return process.exitCode();
}

void write(const QString& path, const QByteArray& bytes, bool executable = false) {
    QDir().mkpath(QFileInfo(path).path());
    writeFile(path, bytes);
    if (executable) QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner);
}

class TestPackaging : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void desktopsTakeWhatIsInstalled_data() {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("desktop entry") << u"desktop-file-validate"_s
                                       << QStringList{source(u"org.lunq.album.desktop"_s)};
        QTest::newRow("metainfo") << u"appstreamcli"_s
                                  << QStringList{u"validate"_s, u"--no-net"_s, setting("LUNQ_METAINFO")};
        for (const QString& script : {u"lunq.sh"_s, u"start.sh"_s, u"archive/add-to-menu.sh"_s})
            QTest::newRow(qPrintable(script)) << u"sh"_s << QStringList{u"-n"_s, source(script)};
    }
    void desktopsTakeWhatIsInstalled() {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        QString output;
        const int code = run(program, arguments, &output);
        // Newer validators miss a home page, which this program does not have.
        static const QRegularExpression faults(u"^[EW]: (?!.*url-homepage-missing)"_s,
                                               QRegularExpression::MultilineOption);
        const bool fine = program == u"appstreamcli" ? !output.contains(faults) && !output.isEmpty() : code == 0;
        QVERIFY2(fine, qPrintable(output));
    }

    void entryAndMetainfoNameTheSame() {
        const QByteArray metainfo = contentOf(setting("LUNQ_METAINFO"), "(none)");
        const QByteArray entry = contentOf(source(u"org.lunq.album.desktop"_s), "(none)");
        QVERIFY(metainfo.contains(">org.lunq.album.desktop<") && metainfo.contains("<icon type=\"stock\">lunq<"));
        const QByteArray version = setting("LUNQ_VERSION").toUtf8();
        QVERIFY(metainfo.contains("<release version=\"" + version + "\""));
        QVERIFY(contentOf(setting("LUNQ_CHANGES"), "(none)").contains("\n## " + version));
        QVERIFY(entry.contains("\nIcon=lunq\n") && entry.contains("\nExec=lunq\n"));
    }

    void theIconIsDrawnInEverySize() {
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
            const QImage icon(u"%1/%2.png"_s.arg(setting("LUNQ_ICONS")).arg(side));
            QCOMPARE(icon.size(), QSize(side, side));
            QCOMPARE(icon.pixelColor(0, 0).alpha(), 0);
            QCOMPARE(icon.pixelColor(side / 2, side / 2).alpha(), 255);
        }
    }
};

/// The launcher of the installed program, with a program that only prints its folder.
class TestLauncher : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> root_;
    QString output_;

    QString shipped(const QString& name) const { return root_->filePath(u"usr/lib/lunq/"_s + name); }
    QString album(const QString& name) const { return root_->filePath(u"家 中/览忆集苑/"_s + name); }
    int launch() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, root_->filePath(u"家 中"_s));
        // What the desktop would show in a box goes to nobody here.
        environment.insert(u"PATH"_s, root_->filePath(u"stub"_s) + u':' + environment.value(u"PATH"_s));
        for (const QString& display : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s}) environment.remove(display);
        return run(root_->filePath(u"usr/bin/lunq"_s), {}, &output_, environment);
    }

  private Q_SLOTS:
    void init() {
        root_ = std::make_unique<QTemporaryDir>();
        write(shipped(u"lunq"_s), "#!/bin/sh\necho \"runs as $0\"\n", true);
        for (const QString& name :
             {u"lunq-jet"_s, u"lunq-backup"_s, u"lunq-heif"_s, u"lunq-tiff"_s, u"lunq-webp"_s, u"lunq-cli"_s})
            write(shipped(name), "first " + name.toUtf8(), true);
        write(shipped(u"s1.ico"_s), "cursor");
        write(shipped(u"start.sh"_s), contentOf(source(u"start.sh"_s), "(none)"), true);
        write(shipped(u"fresh/lunq.mdb"_s), "fresh");
        write(root_->filePath(u"usr/bin/lunq"_s), contentOf(source(u"lunq.sh"_s), "(none)"), true);
        QDir().mkpath(root_->filePath(u"家 中"_s));
        write(root_->filePath(u"stub/zenity"_s), "#!/bin/sh\necho \"$*\" > \"$HOME/shown\"\n", true);
    }

    void everyUserHasAFolderWithTheProgram() {
        QVERIFY2(launch() == 0, qPrintable(output_));
        QCOMPARE(output_, u"runs as "_s + album(u"lunq"_s) + u'\n');
        for (const QString& name : {u"lunq-jet"_s, u"lunq-backup"_s, u"s1.ico"_s, u"fresh/lunq.mdb"_s})
            QCOMPARE(contentOf(album(name), "(none)"), contentOf(shipped(name), "(none)"));
        QVERIFY(QFileInfo(album(u"lunq-jet"_s)).isExecutable());
    }

    /// It is converted into a copy of the fresh one.
    void aCatalogueBroughtBeforeTheFirstStartFindsTheFreshOne() {
        write(album(u"lunq.mdb"_s), "an old catalogue");
        QVERIFY2(launch() == 0, qPrintable(output_));
        QCOMPARE(contentOf(album(u"lunq.mdb"_s), "(none)"), QByteArray("an old catalogue"));
        QCOMPARE(contentOf(album(u"fresh/lunq.mdb"_s), "(none)"), QByteArray("fresh"));
    }

    void aNewVersionReplacesTheProgramAndNothingElse() {
        QVERIFY(launch() == 0);
        write(album(u"lunq.mdb"_s), "all pictures of a life");
        write(album(u"bf.sh"_s), "backup");
        write(shipped(u"lunq-jet"_s), "second", true);
        QVERIFY(launch() == 0);
        QCOMPARE(contentOf(album(u"lunq-jet"_s), "(none)"), QByteArray("second"));
        QCOMPARE(contentOf(album(u"lunq.mdb"_s), "(none)"), QByteArray("all pictures of a life"));
        QCOMPARE(contentOf(album(u"bf.sh"_s), "(none)"), QByteArray("backup"));
        QVERIFY(QDir(album({})).entryList({u"*.part"_s}).isEmpty());
    }

    void withoutRoomForTheNewVersionTheOldOneStarts() {
        QVERIFY(launch() == 0);
        write(album(u"lunq.mdb"_s), "all pictures of a life");
        write(shipped(u"lunq-jet"_s), "second", true);
        QDir().mkpath(album(u"lunq-jet.part/taken"_s));
        QVERIFY2(launch() == 0, qPrintable(output_));
        QVERIFY(output_.contains(u"没有换成新的版本"_s) && output_.contains(u"runs as "_s + album(u"lunq"_s)));
    }

    /// What the program ends with, and what a person gets to see of it.
    void aProgramThatDoesNotStartIsTold_data() {
        QTest::addColumn<QByteArray>("last");
        QTest::addColumn<QByteArray>("libraries");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("shown");
        const QByteArray found("\tlibc.so.6 => /lib/libc.so.6 (0x00007f)\n");
        const QByteArray missing("\tlibtiff.so.6 => not found\n");
        const QByteArray tooOld("./lunq: /lib/libc.so.6: version `GLIBC_2.38' not found (required by ./lunq)\n");
        QTest::newRow("a library is missing") << QByteArray("exit 127") << found + missing << 127
                                              << u"缺少这些部件，或者它们的版本太旧：\nlibtiff.so.6\n\n"_s;
        QTest::newRow("a library is too old")
            << QByteArray("exit 1") << tooOld + found << 1 << u"太旧：\nlibc.so.6 (GLIBC_2.38)\n\n"_s;
        QTest::newRow("nothing is missing") << QByteArray("exit 127") << found << 127 << u"/lunq”不能启动。"_s;
        QTest::newRow("no window") << QByteArray("exit 69") << found << 69 << u"不能打开窗口"_s;
        QTest::newRow("killed") << QByteArray("kill -SEGV $$") << found << 139 << u"意外结束"_s;
        QTest::newRow("closed") << QByteArray("exit 0") << found << 0 << QString();
        QTest::newRow("failed of itself") << QByteArray("exit 1") << found << 1 << QString();
    }
    void aProgramThatDoesNotStartIsTold() {
        QFETCH(QByteArray, last);
        QFETCH(QByteArray, libraries);
        QFETCH(int, code);
        QFETCH(QString, shown);
        write(shipped(u"lunq"_s), "#!/bin/sh\n" + last + '\n', true);
        write(root_->filePath(u"stub/ldd"_s), "#!/bin/sh\ncat <<'END'\n" + libraries + "END\n", true);
        QCOMPARE(launch(), code);
        const QString box = QString::fromUtf8(contentOf(root_->filePath(u"家 中/shown"_s), "(none)"));
        QVERIFY2(shown.isEmpty() ? box == u"(none)" : box.contains(shown), qPrintable(box));
    }

    void theArchivePutsItselfIntoTheMenu() {
        const QString folder = root_->filePath(u"家 中/a \"b\" 100% \\c/览忆集苑"_s);
        write(folder + u"/add-to-menu.sh"_s, contentOf(source(u"archive/add-to-menu.sh"_s), "(none)"), true);
        write(folder + u"/icons/lunq.desktop"_s, contentOf(source(u"org.lunq.album.desktop"_s), "(none)"));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_DATA_HOME"_s, root_->filePath(u"data"_s));
        const QString entry = root_->filePath(u"data/applications/org.lunq.album.desktop"_s);
        QVERIFY2(run(folder + u"/add-to-menu.sh"_s, {}, &output_, environment) == 0, qPrintable(output_));
        QVERIFY2(contentOf(entry, "(none)")
                     .contains("\nExec=\"" + root_->path().toUtf8() +
                               "/家 中/a \\\\\"b\\\\\" 100%% \\\\\\\\c/览忆集苑/start.sh\"\nIcon=" +
                               root_->path().toUtf8() + "/家 中/a \"b\" 100% \\\\c/览忆集苑/icons/lunq.png\n"),
                 contentOf(entry, "(none)").constData());
        QVERIFY2(run(u"desktop-file-validate"_s, {entry}, &output_) == 0, qPrintable(output_));
        QVERIFY(run(folder + u"/add-to-menu.sh"_s, {u"--remove"_s}, &output_, environment) == 0);
        QVERIFY(!QFile::exists(entry));
    }

    void aPlaceThatIsTakenIsTold() {
        write(root_->filePath(u"家 中/览忆集苑"_s), "a file");
        QVERIFY(launch() != 0);
        QVERIFY2(output_.contains(u"览忆集苑无法启动"), qPrintable(output_));
    }
};

const Registered<TestPackaging> packaging;
const Registered<TestLauncher> launcher;

}  // namespace

#include "packaging_test.moc"
