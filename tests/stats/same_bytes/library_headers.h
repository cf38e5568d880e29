// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <charconv>
#include <memory_resource>
#include <span>
#include <vector>
