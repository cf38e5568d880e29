// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Acercade.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace shell {

namespace {

QByteArray ownPicture()
{
    QFile file(QStringLiteral(":/shell/acerca.jpg"));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

TAcerca::TAcerca(QWidget* parent)
    : TAcerca(ownPicture(), parent)
{
}

TAcerca::TAcerca(const QByteArray& picture, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint)
    , m_pictureBytes(picture)
{
    setObjectName(QStringLiteral("Acerca"));
    setWindowTitle(QStringLiteral("Acerca de"));
    setAccessibleName(windowTitle());
}

void TAcerca::BitBtn1Click()
{
    close();
}

/// The box is furnished when it is first shown, so that a start waits neither for its picture nor
/// for the search for its button's icon.
void TAcerca::setVisible(bool visible)
{
    if (visible && layout() == nullptr) {
        createLayout();
        decodePicture();
    }
    QDialog::setVisible(visible);
}

bool TAcerca::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked && isVisible()) {
        m_isAside = true;
        hide();
    } else if (event->type() == QEvent::WindowUnblocked && m_isAside) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        show();
        setAttribute(Qt::WA_ShowWithoutActivating, false);
        m_isAside = false;
    }
    return QDialog::event(event);
}

void TAcerca::showEvent(QShowEvent* event)
{
    if (!event->spontaneous() && !m_isAside) {
        adjustSize();
        QRect place = rect();
        place.moveCenter(screen()->availableGeometry().center());
        move(place.topLeft());
    }
    QDialog::showEvent(event);
}

void TAcerca::createLayout()
{
    m_picture = new QLabel;
    m_picture->setObjectName(QStringLiteral("Image1"));
    m_picture->setAccessibleName(QStringLiteral("Un cuadrado latino de orden 4"));
    m_picture->hide();

    auto* text = new QVBoxLayout;
    QLabel* name = line(1, QStringLiteral("Cuadrado Latino " CL_VERSION));
    QFont bold = name->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    name->setFont(bold);
    text->addWidget(name);
    text->addSpacing(6);
    text->addWidget(
        line(2, QStringLiteral("Estimación de la potencia de pruebas no paramétricas")));
    text->addWidget(line(3, QStringLiteral("en el diseño de cuadrado latino de orden 3 a 6")));
    text->addSpacing(12);
    text->addWidget(line(4, QStringLiteral("Hecho por el equipo de Cuadrado Latino")));
    text->addWidget(line(5, QStringLiteral("Software libre: licencia GPL, versión 3 o posterior")));
    text->addWidget(line(6, QStringLiteral("Construido con Qt " QT_VERSION_STR " y libjpeg")));
    text->addStretch();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("BitBtn1"));
    connect(ok, &QPushButton::clicked, this, &TAcerca::BitBtn1Click);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(18, 18, 18, 14);
    grid->setHorizontalSpacing(20);
    grid->setVerticalSpacing(16);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->addWidget(m_picture, 0, 0, Qt::AlignTop);
    grid->addLayout(text, 0, 1);
    grid->addWidget(buttons, 1, 0, 1, 2);
}

QLabel* TAcerca::line(int number, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(QStringLiteral("Label%1").arg(number));
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// The picture holds two pixels of each side for one on the screen, for screens of scale 2.
void TAcerca::decodePicture()
{
    constexpr qreal pictureScale = 2.0;
    const QByteArray bytes = std::exchange(m_pictureBytes, {});
    QPixmap picture;
    // Half a picture would be decoded too, down to where it breaks off.
    if (!bytes.endsWith("\xFF\xD9") || !picture.loadFromData(bytes, "jpeg"))
        return;
    picture.setDevicePixelRatio(pictureScale);
    m_picture->setPixmap(picture);
    m_picture->show();
}

} // namespace shell
