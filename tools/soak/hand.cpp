#include "soak/hand.h"

#include "platform/desktop/file_lists.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

using namespace Qt::Literals::StringLiterals;

QWidget* Hand::window(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == name && widget->isVisible()) return widget;
    return nullptr;
}

QWidget& Hand::window() const {
    QWidget* found = window(windowName_);
    if (found == nullptr) throw Error(u"no window %1"_s.arg(windowName_));
    return *found;
}

void Hand::click(const QString& name) const {
    auto& control = get<QWidget>(name);
    if (!control.isVisible() || !control.isEnabled()) throw Error(u"%1.%2 cannot be clicked"_s.arg(windowName_, name));
    QTest::mouseClick(&control, Qt::LeftButton);
}

void Hand::click(const QStringList& names) const {
    for (const QString& name : names) click(name);
}

void Hand::option(const QString& name) const {
    QTest::mouseClick(&get<QRadioButton>(name), Qt::LeftButton, {}, QPoint(8, 9));
}

void Hand::trigger(const QString& action) const {
    get<QAction>(action).trigger();
}

void Hand::type(const QString& box, const QString& text) const {
    get<TextBox>(box).setText(text);
}

void Hand::leaveBy(const QString& name, const QString& nextWindow) const {
    if (window().findChild<QWidget*>(name) != nullptr)
        click(name);
    else
        trigger(name);
    if (!QTest::qWaitFor([&] { return window(nextWindow) != nullptr && !isThere(); }))
        throw Error(u"%1 does not lead to %2"_s.arg(name, nextWindow));
}

void Hand::openPage(int page) const {
    get<TabControl>(u"sstFz"_s).setCurrentIndex(page);
}

void Hand::chooseInCombo(const QString& combo, const QString& beginning) const {
    auto& chooser = get<QComboBox>(combo);
    const int index = chooser.findText(beginning, Qt::MatchStartsWith);
    if (index < 0) throw Error(u"%1 does not offer %2"_s.arg(combo, beginning));
    chooser.setCurrentIndex(index);
    Q_EMIT chooser.activated(index);
}

void Hand::clickLine(const QString& list, const QString& text) const {
    auto& box = get<ListBox>(list);
    const auto lines = box.findItems(text, Qt::MatchExactly);
    if (lines.isEmpty()) {
        QStringList all;
        for (int i = 0; i < box.ListCount(); ++i) all << box.List(i);
        throw Error(u"%1 has no line %2, but %3"_s.arg(list, text, all.join(u", "_s)));
    }
    box.scrollToItem(lines.front());
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.visualItemRect(lines.front()).center());
}

void Hand::clickRow(int row) const {
    auto& grid = get<QTableView>(u"msgBm"_s);
    const QModelIndex cell = grid.model()->index(row, 0);
    grid.scrollTo(cell);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(cell).center());
}

void Hand::clickRowOf(int column, const QString& text) const {
    const auto* model = get<QTableView>(u"msgBm"_s).model();
    for (int row = 0; row < model->rowCount(); ++row)
        if (model->index(row, column).data().toString() == text) return clickRow(row);
    throw Error(u"no row for "_s + text);
}

void Hand::browse(const QString& folder) const {
    auto& folders = get<DirList>(u"dir1"_s);
    folders.setPath(QFileInfo(folder).path());
    folders.setPath(folder);
}
