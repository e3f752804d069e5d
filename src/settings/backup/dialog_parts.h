#pragma once

#include <QDialog>
#include <span>

class QLabel;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

// What the windows about backups and pictures have in common.

/// The window is deleted when it is closed, and locks the one that it belongs to meanwhile.
void setUpDialog(QDialog& dialog, const QString& name, const QString& title, QSize usualSize);

/// Plain text above a list, of one line or more.
QLabel* addHead(QDialog& dialog, QVBoxLayout& lines, const QString& name);

/// A table whose lines can be marked, but not changed. `widths` are pixels of its first columns; the last one takes
/// what is left.
QTableWidget* addTable(QDialog& dialog, QVBoxLayout& lines, const QString& name, const QString& title,
                       const QStringList& headings, std::span<const int> widths);

/// The last line: `deeds` at its left, and at its right the button that closes the window.
void addButtons(QDialog& dialog, QVBoxLayout& lines, std::initializer_list<QPushButton*> deeds, QPushButton* closes);
