#include "viewer/album_menu.h"

#include "platform/desktop/placing.h"
#include "viewer/selection.h"

#include <QMenu>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

QStringList tipsOfEqualTitles(const QStringList& titles, const QStringList& tables) {
    QStringList tips;
    for (qsizetype i = 0; i < titles.size(); ++i) {
        const auto isEqual = [&](const QString& other) { return other.compare(titles[i], Qt::CaseInsensitive) == 0; };
        const auto first = std::ranges::find_if(titles, isEqual) - titles.begin();
        if (std::ranges::count_if(titles, isEqual) == 1)
            tips << QString();
        else
            tips << (first == i ? tables[i] : u"%1（标题与 %2 相同，打开的是 %2）"_s.arg(tables[i], tables[first]));
    }
    return tips;
}

AlbumMenu::AlbumMenu(QMenuBar* bar) : mnuDk(bar->addMenu(u"打开图册(&D)"_s)) {
    mnuDk->setObjectName(u"mnuDk"_s);
    mnuDk->menuAction()->setObjectName(u"mnuDk"_s);
    mnuDk->setToolTipsVisible(true);
    mnuTg = mnuDk->addAction(u"关闭图册"_s);
    mnuTg->setObjectName(u"mnuTg"_s);
    mnuTg->setEnabled(false);
    connect(mnuTg, &QAction::triggered, this, &AlbumMenu::closeChosen);
    mnuDk->insertSeparator(mnuTg);
}

void AlbumMenu::fill(QStringList titles, const QStringList& tables) {
    if (titles.isEmpty()) titles << presetTitle;
    const QStringList tips = tipsOfEqualTitles(titles, tables);
    QAction* const end = mnuDk->actions().constFirst();
    for (int i = 0; i < titles.size(); ++i) {
        auto* item = new QAction(titles[i].replace(u"&"_s, u"&&"_s), mnuDk);
        item->setObjectName(element(u"mnuCd"_s, i));
        item->setToolTip(tips[i]);
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [this, i] { Q_EMIT chosen(i); });
        mnuDk->insertAction(end, item);
        mnuCd << item;
    }
}

void AlbumMenu::showOpen(int index) {
    for (int i = 0; i < count(); ++i) mnuCd[i]->setChecked(i == index);
    mnuTg->setEnabled(index >= 0);
}
