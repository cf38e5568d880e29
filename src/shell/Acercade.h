// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QLabel;

namespace shell {

/// The About box: what the program is, in six lines beside a picture, and a button that closes it.
/// It stays above the other windows and blocks none of them; it opens in the middle of the screen.
/// A question that any window puts would be behind it and blocked by it: the box steps aside until
/// that is answered.
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
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createLayout();
    QLabel* line(int number, const QString& text);
    void decodePicture();

    QByteArray m_pictureBytes; ///< Until the box is first shown.
    QLabel* m_picture = nullptr;
    bool m_isAside = false;
};

} // namespace shell
