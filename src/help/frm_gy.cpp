#include "help/frm_gy.h"

#include "help/text_page.h"
#include "platform/base/error.h"
#include "platform/base/processes.h"
#include "platform/desktop/failure_list.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <QCoreApplication>
#include <QFile>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {
QLabel* line(frmGy* box, const QString& name, const QString& text, int pixelSize) {
    auto* label = make<QLabel>(box, name);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    label->setFont(font);
    label->setText(text);
    label->setWordWrap(true);
    return label;
}
}  // namespace

frmGy::frmGy(QWidget* parent)
    : QDialog(parent), tools_{u"hardinfo"_s,
                              u"hardinfo2"_s,
                              u"kinfocenter"_s,
                              u"gnome-control-center info-overview"_s,
                              u"gnome-system-monitor"_s,
                              u"msinfo32"_s} {
    setObjectName(u"frmGy"_s);
    setWindowTitle(u"关于 览忆集苑"_s);

    auto* icon = make<QLabel>(this, u"imgTb"_s);
    icon->setPixmap(QIcon(u":/icons/lunq.svg"_s).pixmap(QSize(64, 64), devicePixelRatio()));
    icon->setAlignment(Qt::AlignTop);
    auto* title = line(this, u"lblBt"_s, u"览忆集苑"_s, 22);
    auto* version = line(this, u"lblBb"_s, u"版本 %1"_s.arg(QCoreApplication::applicationVersion()), 12);
    auto* description = line(
        this, u"lblSm"_s,
        u"电子像册：成千上万张图片收在一个文件里，可按页浏览、按钮筛选、放大观看和幻灯播放，并可随时复制和备份。"_s,
        13);
    auto* licences =
        line(this, u"lblXk"_s,
             u"使用的部件及其许可：Qt 6（LGPL 3）、SQLite（公有领域）、SQLiteCpp（MIT）、libjpeg-turbo（IJG 与 BSD）、"
             "Little CMS（MIT）、Exiv2（GPL 2 或更新）、libheif（LGPL "
             "3）、libtiff（libtiff）、libwebp（BSD）、zlib（zlib）、"
             "OpenSSL（Apache 2.0）、libmdb 与 GLib（LGPL 2.1）。"_s,
             11);
    QPalette muted = licences->palette();
    muted.setColor(QPalette::WindowText, muted.color(QPalette::PlaceholderText));
    licences->setPalette(muted);
    auto* rule = make<QFrame>(this, u"linFg"_s);
    rule->setFrameShape(QFrame::HLine);
    QPalette thin = rule->palette();
    thin.setColor(QPalette::WindowText, theme::worn().line);
    rule->setPalette(thin);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(8);
    for (QWidget* widget : {title, version}) texts->addWidget(widget);
    texts->addSpacing(6);
    texts->addWidget(description);
    texts->addWidget(licences);
    auto* top = new QHBoxLayout;
    top->setSpacing(20);
    top->addWidget(icon);
    top->addLayout(texts, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(24, 24, 24, 16);
    all->setSpacing(14);
    all->addLayout(top);
    all->addStretch();
    all->addWidget(rule);
    all->addLayout(makeButtons());
    setFixedSize(440, 344);
}

QBoxLayout* frmGy::makeButtons() {
    auto* tools = make<QPushButton>(this, u"cmdXt"_s, u"系统信息(&S)"_s);
    auto* changes = make<QPushButton>(this, u"cmdGx"_s, u"更新记录(&G)"_s);
    auto* failures = make<QPushButton>(this, u"cmdGz"_s, u"故障记录(&Z)"_s);
    auto* ok = make<QPushButton>(this, u"cmdQd"_s, u"确定"_s);
    auto* buttons = new QHBoxLayout;
    for (QWidget* button : {tools, changes, failures}) buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(ok);
    ok->setDefault(true);
    ok->setFocus();
    connect(tools, &QPushButton::clicked, this, guarded(this, [this] { showSystemInformation(); }));
    connect(changes, &QPushButton::clicked, this, guarded(this, [this] { showChanges(); }));
    connect(failures, &QPushButton::clicked, this, guarded(this, [this] { showFailures(); }));
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    return buttons;
}

void frmGy::showChanges() {
    QFile changes(u":/catalogue/CHANGELOG.md"_s);
    if (!changes.open(QIODevice::ReadOnly)) throw Error(u"程序中缺少更新记录。"_s);
    auto* page = new TextPage(u"更新记录"_s, this);
    page->showMarkdown(QString::fromUtf8(changes.readAll()));
    page->show();
}

/// With what somebody needs to look into them.
void frmGy::showFailures() {
    QStringList lines{u"览忆集苑 %1，%2，Qt %3"_s.arg(QCoreApplication::applicationVersion(),
                                                      QSysInfo::prettyProductName(), QString::fromLatin1(qVersion()))};
    const auto failures = lastFailures();
    if (failures.empty()) lines << u"这次启动以后没有故障。"_s;
    for (const auto& [when, what] : failures) lines << when.toString(u"yyyy-MM-dd hh:mm:ss"_s) + u"  "_s + what;
    auto* page = new TextPage(u"故障记录"_s, this);
    page->showText(lines.join(u'\n'));
    page->show();
}

void frmGy::showSystemInformation() {
    for (const QString& tool : std::as_const(tools_)) {
        QStringList words = tool.split(u' ');
        const QString program = findProgram({words.takeFirst()});
        if (!program.isEmpty() && attempt([&] { Shell(program, words); })) return;
    }
    say(this, u"此时系统信息不可用"_s);
}
