#pragma once

#include <QDialog>

class Diagnosis;

/// A diagnosis in a window of its own.
class DiagnosisDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `diagnosis` is kept by reference.
    explicit DiagnosisDialog(Diagnosis &diagnosis, QWidget *parent = nullptr);
};
