// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

/// A folder to save in, and what stands in it.
class Saving : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    std::string folder() const { return m_folder.path().toStdString(); }
    QStringList entries() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};
