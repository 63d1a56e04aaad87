#pragma once

#include "sales/notice.h"

#include <QLabel>

/// White text on a coloured ground, to be seen from a step away.
class NoticeLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// One line for the cashier, as large as it fits; "" takes the ground away too.
    void tell(const QString &text, Notice kind);

    /// Which box Enter feeds: the ground changes with it.
    void showMode(const QString &text, bool usual);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QFont fitting(const QString &text) const;
    void paintGround(const QColor &colour);

    bool m_fits = false; ///< the type is what fits
};
