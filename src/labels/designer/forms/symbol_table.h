#pragma once

#include <QFont>
#include <QWidget>

#include <vector>

/// The characters of a font as a table, one of them chosen, by mouse or arrow keys.
class SymbolTable final : public QWidget
{
    Q_OBJECT

public:
    explicit SymbolTable(QWidget *parent = nullptr);

    void show(const QString &family, const std::vector<QChar> &symbols);
    void choose(QChar symbol);
    bool isEmpty() const { return m_symbols.empty(); }

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosen(QChar symbol);
    void taken(); ///< double click

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QRect cell(int place) const;
    void setPlace(int place);

    QFont m_font;
    std::vector<QChar> m_symbols;
    int m_place = 0;
};
