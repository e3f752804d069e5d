#include "../support/disk_order.h"

#include "transfer_window.h"

using namespace Qt::Literals::StringLiterals;

/// After a power cut a file that bears its name has to be whole, above all when its record has been deleted.
class TestDiskOrder : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void picturesAreOnTheDiskBeforeTheyHaveTheirNames_data() {
        QTest::addColumn<QString>("button");
        QTest::addRow("one by one, copied") << u"cmdFz"_s;
        QTest::addRow("one by one, moved") << u"cmdYd"_s;
        QTest::addRow("all at once") << u"cmdWj"_s;
    }

    void picturesAreOnTheDiskBeforeTheyHaveTheirNames() {
        QFETCH(QString, button);
        TransferWindow window;
        window.chooseRows({0, 2});
        window.chooseFolder();
        const DiskOrder order;
        window.click(button);
        if (window.shown(u"fraWm"_s))
            for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        QCOMPARE(window.exported().size(), 2);
        QStringList named = DiskOrder::named();
        named.removeIf([](const QString& name) { return !name.endsWith(u".jpg"); });
        QCOMPARE(named.size(), 2);
        QCOMPARE(DiskOrder::namedTooEarly(), QStringList());
    }
};

const Registered<TestDiskOrder> registered;

#include "disk_order_test.moc"
