#pragma once

#include <QStringList>

/// Watches, as long as it lives, in which order the program asks the system to wait for the disk and to give names.
/// A test program that uses it is linked with `disk_order.cpp`, which replaces these calls.
class DiskOrder {
  public:
    DiskOrder();
    ~DiskOrder();
    DiskOrder(const DiskOrder&) = delete;
    DiskOrder& operator=(const DiskOrder&) = delete;

    /// Files that got their names, in that order.
    static QStringList named();
    /// Those of them whose bytes the program had not, or not all, waited for.
    static QStringList namedTooEarly();
};
