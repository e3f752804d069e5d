// Linked to the program, it works it as a person would: it opens the second album, changes a setting, prints on the
// standard output what it has read, and closes the window when its input ends. It prints and confirms message boxes.

#include "soak/hand.h"

#include <unistd.h>

#include <QSocketNotifier>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

void tell(const QString& line) {
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

class WorkingHand : public QObject {
  public:
    WorkingHand() : QObject(qApp), input_(STDIN_FILENO, QSocketNotifier::Read) {
        looking_.setInterval(10);
        connect(&looking_, &QTimer::timeout, this, [this] { look(); });
        looking_.start();
        connect(&input_, &QSocketNotifier::activated, this, [this] {
            char letter = 0;
            if (read(STDIN_FILENO, &letter, 1) > 0) return;
            input_.setEnabled(false);
            if (auto* window = Hand::window(u"frmTp"_s)) window->close();
        });
    }

  private:
    void look() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            tell(u"box: "_s + box->text());
            box->accept();
        } else if (Hand::window(u"frmTp"_s) != nullptr && !std::exchange(hasWorked_, true)) {
            if (const auto failed = failure([this] { work(); })) tell(u"failure: "_s + *failed);
        }
    }

    static std::optional<QString> failure(const std::function<void()>& step) {
        try {
            step();
        } catch (const Error& error) {
            return error.text();
        }
        return {};
    }

    void work() {
        const Hand hand(u"frmTp"_s);
        hand.trigger(u"mnuCd(1)"_s);
        hand.click(u"imgAn(0)"_s);
        hand.get<QCheckBox>(u"chkBq(0)"_s).click();
        tell(u"read: "_s + hand.get<QLabel>(u"sta1:3"_s).text());
    }

    QTimer looking_;
    QSocketNotifier input_;
    bool hasWorked_ = false;
};

void begin() {
    new WorkingHand;
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)
