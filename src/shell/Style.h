// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/AlikePalettes.h"

#include <QProxyStyle>

namespace shell {

/// The style of the desktop with the program's own pictures in dialogs and title bars, sharp at
/// every scale, and with what a dark theme swallows drawn so that it is seen: radio buttons that
/// are not chosen, and the buttons in the title bar of a child behind others. What is drawn alike
/// is kept once, however many windows have palettes of their own.
class Style : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget = nullptr) const override;

private:
    mutable AlikePalettes m_palettes; ///< Drawing is const to Qt.
};

} // namespace shell
