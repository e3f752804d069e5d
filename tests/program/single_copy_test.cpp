#include "single_copy.h"

#include "../support/run_all.h"

#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestSingleCopy : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void secondCopyIsNoticed() {
        QLockFile first(path());
        QVERIFY(!isSecondCopy(first));
        QLockFile second(path());
        QVERIFY(isSecondCopy(second));
        first.unlock();
        QVERIFY(!isSecondCopy(second));
    }

    void folderWithoutALockIsNoObstacle() {
        QLockFile lock(folder_.filePath(u"missing/lunq.lock"_s));
        QVERIFY(!isSecondCopy(lock));
    }

    void lockLeftBehind() {
        const std::pair<QString, qint64> copiedFromElsewhere{u"elsewhere"_s, QCoreApplication::applicationPid()};
        const std::pair<QString, qint64> endedHere{QSysInfo::machineHostName(), 0x3fffffff};
        for (const auto& [computer, process] : {copiedFromElsewhere, endedHere}) {
            QFile file(path());
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(u"%1\n%2\n%3\n"_s.arg(process).arg(QCoreApplication::applicationName(), computer).toUtf8());
            file.close();
            QLockFile lock(path());
            QVERIFY2(!isSecondCopy(lock), qPrintable(computer));
            QLockFile second(path());
            QVERIFY2(isSecondCopy(second), qPrintable(computer));
        }
    }

  private:
    QString path() const { return folder_.filePath(u"lunq.lock"_s); }
    QTemporaryDir folder_;
};

const Registered<TestSingleCopy> registered;

}  // namespace

#include "single_copy_test.moc"
