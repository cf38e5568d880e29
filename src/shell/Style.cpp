// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Style.h"

#include "window/Icons.h"

#include <QDialog>
#include <QStyleOption>

#include <optional>

namespace shell {

namespace {

std::optional<window::Picture> pictureOf(QStyle::StandardPixmap standard)
{
    using window::Picture;
    switch (standard) {
    case QStyle::SP_MessageBoxCritical:
        return Picture::Error;
    case QStyle::SP_MessageBoxWarning:
        return Picture::Warning;
    case QStyle::SP_MessageBoxQuestion:
        return Picture::Question;
    case QStyle::SP_MessageBoxInformation:
        return Picture::About;
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirClosedIcon:
    case QStyle::SP_DirLinkIcon:
    case QStyle::SP_DirHomeIcon:
        return Picture::Folder;
    case QStyle::SP_FileIcon:
    case QStyle::SP_FileLinkIcon:
        return Picture::File;
    case QStyle::SP_ComputerIcon:
    case QStyle::SP_DriveHDIcon:
        return Picture::Computer;
    case QStyle::SP_FileDialogBack:
        return Picture::Back;
    case QStyle::SP_FileDialogToParent:
        return Picture::Up;
    case QStyle::SP_FileDialogNewFolder:
        return Picture::NewFolder;
    case QStyle::SP_FileDialogListView:
        return Picture::List;
    case QStyle::SP_FileDialogDetailedView:
        return Picture::Details;
    case QStyle::SP_ArrowBack:
        return Picture::Back;
    case QStyle::SP_ArrowForward:
        return Picture::Forward;
    case QStyle::SP_TitleBarMinButton:
        return Picture::Minimise;
    case QStyle::SP_TitleBarMaxButton:
        return Picture::Maximise;
    case QStyle::SP_TitleBarNormalButton:
        return Picture::Restore;
    case QStyle::SP_TitleBarCloseButton:
        return Picture::Close;
    default:
        return std::nullopt;
    }
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

} // namespace

QIcon Style::standardIcon(StandardPixmap standard, const QStyleOption* option,
                          const QWidget* widget) const
{
    const std::optional<window::Picture> picture = pictureOf(standard);
    return picture ? window::icon(*picture) : QProxyStyle::standardIcon(standard, option, widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returnData) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0; // what a button does stands on it
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

/// Without a picture the words on a dialog's button would touch its edges.
QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const
{
    const bool isOfDialog = type == CT_PushButton && widget != nullptr &&
                            qobject_cast<const QDialog*>(widget->window()) != nullptr;
    const QSize margin(isOfDialog ? 2 * option->fontMetrics.averageCharWidth() : 0, 0);
    return QProxyStyle::sizeFromContents(type, option, contents + margin, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const
{
    const DrawnAlike alike(option, m_palettes);
    QProxyStyle::drawControl(element, option, painter, widget);
}

/// Outlines are drawn in a darker shade of the window's colour, which is darker still where the
/// window is dark.
void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    const DrawnAlike alike(option, m_palettes);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != PE_IndicatorRadioButton || button == nullptr || !isDark(option->palette)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton outlined(*button);
    outlined.palette.setColor(QPalette::Window, option->palette.color(QPalette::WindowText));
    QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
}

/// The title bar of a child behind others has black buttons under every theme, that of the active
/// one has white ones on the colour of chosen things.
void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const
{
    const DrawnAlike alike(option, m_palettes);
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    const bool isBlackOnDark = control == CC_TitleBar && bar != nullptr &&
                               (bar->titleBarState & State_Active) == 0 && isDark(option->palette);
    if (!isBlackOnDark) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionTitleBar light(*bar);
    light.titleBarState |= State_Active;
    light.state |= State_Active;
    light.palette.setColor(QPalette::Highlight, option->palette.color(QPalette::Window));
    QProxyStyle::drawComplexControl(control, &light, painter, widget);
}

} // namespace shell
