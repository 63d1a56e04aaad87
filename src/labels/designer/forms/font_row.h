#pragma once

#include "labels/layout/label_layout.h"

#include <QObject>

QT_BEGIN_NAMESPACE
class QDoubleSpinBox;
class QFontComboBox;
class QToolButton;
QT_END_NAMESPACE

/// The controls of an element's font: name, points and four styles. A font that this machine lacks
/// keeps its name.
class FontRow final : public QObject
{
    Q_OBJECT

public:
    struct Controls
    {
        QFontComboBox *name;
        QDoubleSpinBox *points;
        QToolButton *bold;
        QToolButton *italic;
        QToolButton *underline;
        QToolButton *strike;
    };
    FontRow(const Controls &controls, QObject *parent);

    /// Shows what these fonts have in common.
    void show(const QList<PaperFont> &fonts);

Q_SIGNALS:
    /// The user changed one thing of the fonts, which `change` does to each.
    void edited(const QString &what, int merge, const std::function<void(PaperFont &)> &change);

private:
    void connectStyle(QToolButton *button, bool PaperFont::*style);
    void showStyle(QToolButton *button, const QList<PaperFont> &fonts, bool PaperFont::*style);

    Controls m_controls;
};
