// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QLabel;

namespace shell {

/// The About box: what the program is, in six lines beside a picture, and a button that closes it.
/// It stays above the other windows and blocks none of them; it opens in the middle of the screen.
class TAcerca : public QDialog {
    Q_OBJECT

public:
    /// With the picture that belongs to the program.
    explicit TAcerca(QWidget* parent = nullptr);

    /// With another picture, the bytes of a JPEG; one that cannot be decoded leaves the box
    /// without.
    TAcerca(const QByteArray& picture, QWidget* parent);

    void setVisible(bool visible) override;

public slots:
    void BitBtn1Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void createLayout();
    QLabel* line(int number, const QString& text);
    void decodePicture();

    QByteArray m_pictureBytes; ///< Until the box is first shown.
    QLabel* m_picture = nullptr;
};

} // namespace shell
