// lunq-cli: the album's companion for the terminal and for timed tasks.

#include "cli/order.h"
#include "cli/tasks.h"
#include "platform/base/error.h"

#include <langinfo.h>

#include <QCoreApplication>
#include <clocale>
#include <cstdlib>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Timed tasks often run without a locale. Names of files are Chinese.
void speakUtf8() {
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) setenv("LC_ALL", "C.UTF-8", 1);
}

Exit carryOut(const Order& order, QTextStream& out) {
    switch (order.task) {
        case Order::Task::help:
            out << helpText();
            break;
        case Order::Task::version:
            out << u"lunq-cli "_s << QCoreApplication::applicationVersion() << u'\n';
            break;
        case Order::Task::check:
            return checkCatalogue(order.catalogue, out);
        case Order::Task::backup:
            return backUp(order.catalogue, order.target, out);
        case Order::Task::exportAlbum:
            return exportAlbum(order.catalogue, order.album, order.target, out);
    }
    return Exit::good;
}

}  // namespace

int main(int argc, char** argv) {
    speakUtf8();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QString::fromLatin1(LUNQ_VERSION));
    QTextStream out(stdout);
    QTextStream complaints(stderr);
    Exit failed = Exit::wrongWords;
    try {
        const Order order = orderFrom(QCoreApplication::arguments().mid(1));
        failed = Exit::notDone;
        return int(carryOut(order, out));
    } catch (const std::exception& failure) {
        out.flush();
        complaints << QString::fromUtf8(failure.what()) << u'\n';
        return int(failed);
    }
}
