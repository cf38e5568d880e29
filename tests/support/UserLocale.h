// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

/// Runs a test with a user's locale and puts the old one back.
class UserLocale {
public:
    explicit UserLocale(const char* name)
    {
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
    }
    ~UserLocale() { QLocale::setDefault(m_previous); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

private:
    QLocale m_previous;
};
