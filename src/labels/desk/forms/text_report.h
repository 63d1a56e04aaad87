#pragma once

#include <QDialog>

/// A text of many lines that the user reads, and may copy.
class TextReport final : public QDialog
{
    Q_OBJECT

public:
    /// `heading` says in a sentence what the lines are.
    TextReport(const QString &title, const QString &heading, const QString &lines,
               QWidget *parent = nullptr);
};
