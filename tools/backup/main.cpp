// lunq-backup CATALOGUE COPY: what the backup script runs. A program of its own, because the script may be started at
// any time, by anybody, with or without a desktop.

#include "backup/catalogue_copy.h"
#include "platform/base/error.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream complaints(stderr);
    if (arguments.size() != 3) {
        complaints << u"用法：lunq-backup 图册数据库 备份文件\n"_s;
        return 2;
    }
    try {
        copyCatalogue(arguments.at(1), arguments.at(2));
        return 0;
    } catch (const Error& error) {
        complaints << error.text() << u"\n"_s;
        return 1;
    }
}
