#include "settings/backup/dialog_parts.h"

#include "platform/desktop/placing.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int buttonWidth = 90;
}  // namespace

void setUpDialog(QDialog& dialog, const QString& name, const QString& title, QSize usualSize) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(title);
    if (dialog.parent() != nullptr) dialog.setWindowModality(Qt::WindowModal);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.resize(usualSize);
}

QLabel* addHead(QDialog& dialog, QVBoxLayout& lines, const QString& name) {
    auto* head = make<QLabel>(&dialog, name);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    lines.addWidget(head);
    return head;
}

QTableWidget* addTable(QDialog& dialog, QVBoxLayout& lines, const QString& name, const QString& title,
                       const QStringList& headings, std::span<const int> widths) {
    auto* table = make<QTableWidget>(&dialog, name, 0, int(headings.size()));
    table->setAccessibleName(title);
    table->setHorizontalHeaderLabels(headings);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    for (std::size_t column = 0; column < widths.size(); ++column) table->setColumnWidth(int(column), widths[column]);
    lines.addWidget(table, 1);
    return table;
}

void addButtons(QDialog& dialog, QVBoxLayout& lines, std::initializer_list<QPushButton*> deeds, QPushButton* closes) {
    auto* row = new QHBoxLayout;
    for (QPushButton* button : deeds) {
        button->setMinimumWidth(buttonWidth);
        row->addWidget(button);
    }
    row->addStretch(1);
    closes->setMinimumWidth(buttonWidth);
    row->addWidget(closes);
    lines.addLayout(row);
    QObject::connect(closes, &QPushButton::clicked, &dialog, &QDialog::close);
}
