#include "shell/forms/code_page.h"

#include "shell/code_choices.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCodeCharacters = 18; ///< room of the first column

bool movesInList(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

} // namespace

CodePage::CodePage(QWidget *parent) : QWidget(parent), m_box(new QLineEdit), m_list(new QTreeView)
{
    m_box->setObjectName(u"search"_s);
    m_box->setPlaceholderText(u"Ara: kodun ya da adın bir parçası"_s);
    m_box->setClearButtonEnabled(true);
    m_box->installEventFilter(this);
    m_list->setObjectName(u"codes"_s);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setFocusProxy(m_box);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_box);
    column->addWidget(m_list);
    setFocusProxy(m_box);
    connect(m_box, &QLineEdit::textEdited, this, &CodePage::search);
    connect(m_box, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty() && !m_beginning) // by the button in the box
            search(text);
    });
}

void CodePage::setChoices(CodeChoices &choices)
{
    m_choices = &choices;
    m_list->setModel(&choices);
    m_list->setColumnWidth(0, fontMetrics().averageCharWidth() * kCodeCharacters);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &now) { Q_EMIT chosen(now.row()); });
}

void CodePage::begin(const QString &code)
{
    {
        const QScopedValueRollback beginning(m_beginning, true);
        m_box->clear();
    }
    makeCurrent(m_choices->find(code));
}

/// What is typed mostly means the first that is found.
void CodePage::search(const QString &text)
{
    Q_EMIT searched(text);
    const int row = m_choices->rowCount() > 0 && !text.isEmpty() ? 0 : -1;
    makeCurrent(row);
    Q_EMIT chosen(row);
}

void CodePage::makeCurrent(int row)
{
    const QModelIndex index = m_choices->index(row, 0);
    m_list->setCurrentIndex(index);
    if (index.isValid())
        m_list->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

bool CodePage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && movesInList(static_cast<QKeyEvent *>(event)->key())) {
        QCoreApplication::sendEvent(m_list, event);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
