#pragma once

#include <QWidget>

#include <memory>
#include <vector>

class Diagnosis;
QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Ui {
class DiagnosisView;
}

/// Shows a diagnosis line by line while it goes on; in a dialog of its own or on a page.
class DiagnosisView final : public QWidget
{
    Q_OBJECT

public:
    /// `diagnosis` is kept by reference; whoever shows the view starts it.
    explicit DiagnosisView(Diagnosis &diagnosis, QWidget *parent = nullptr);
    ~DiagnosisView() override;

    /// Puts one more button at the end of the row.
    void addButton(QPushButton *button);

private:
    struct Line
    {
        QLabel *mark;
        QLabel *name;
        QLabel *text;
    };

    void makeLines();
    void showStep(int step);
    void showState();
    void againOrStop();
    void copy(const QString &text);

    std::unique_ptr<Ui::DiagnosisView> m_ui;
    Diagnosis &m_diagnosis;
    std::vector<Line> m_lines;
};
