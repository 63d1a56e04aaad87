#include "shell/forms/mesaj.h"

#include "ui_mesaj.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

mesaj::mesaj(const Message &message, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::mesaj>())
{
    m_ui->setupUi(this);
    if (!message.caption.isEmpty())
        setWindowTitle(message.caption);
    m_ui->Label1->setText(message.text);
    makeRoomForText();

    const auto picture = [this](QLabel *label, QStyle::StandardPixmap which, bool visible) {
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        label->setPixmap(style()->standardIcon(which).pixmap(size));
        label->setVisible(visible);
    };
    picture(m_ui->i1, QStyle::SP_MessageBoxWarning, message.icon == 3);
    picture(m_ui->i2, QStyle::SP_MessageBoxCritical, message.icon == 2);
    picture(m_ui->i3, QStyle::SP_MessageBoxInformation, message.icon == 1);

    m_ui->button1->setVisible(message.buttons == 1);
    m_ui->button2->setVisible(message.buttons == 2);
    m_ui->button3->setVisible(message.buttons == 2);
    (message.buttons == 1 ? m_ui->button1 : m_ui->button2)->setDefault(true);

    connect(m_ui->button1, &QPushButton::clicked, this, [this] { finish(Answer::yes); });
    connect(m_ui->button2, &QPushButton::clicked, this, [this] { finish(Answer::yes); });
    connect(m_ui->button3, &QPushButton::clicked, this, [this] { finish(Answer::no); });
}

mesaj::~mesaj() = default;

/// A label that breaks its lines asks for the height of a wider one; nothing may be cut off. The
/// box has no size of its own: only so does it keep room for its label where the screen is small.
void mesaj::makeRoomForText()
{
    QLabel *label = m_ui->Label1;
    constexpr int tall = 10'000; // pixels
    constexpr QSize least(260, 48);
    const QRect text = label->fontMetrics().boundingRect(QRect(0, 0, label->maximumWidth(), tall),
                                                         Qt::TextWordWrap, label->text());
    label->setMinimumSize((text.size() + QSize(2, 2)).expandedTo(least));
}

Answer mesaj::ask()
{
    exec();
    return m_answer;
}

void mesaj::finish(Answer answer)
{
    m_answer = answer;
    accept();
}

// The boxes below stand over a window, which stays as long as they do.

/// The window that the user looks at. None is active yet just after a box has closed; a further box
/// over none would lie beneath a till that is kept on top, unseen and waiting for an answer.
QWidget *WindowPrompt::asker()
{
    if (QWidget *active = QApplication::activeWindow())
        m_asker = active;
    else if (QWidget *modal = QApplication::activeModalWidget())
        m_asker = modal;
    while (m_asker && !m_asker->isVisible())
        m_asker = m_asker->parentWidget();
    return m_asker;
}

Answer WindowPrompt::open(const Message &message)
{
    return mesaj(message, asker()).ask();
}

void WindowPrompt::warn(const QString &text, bool critical)
{
    QMessageBox box(critical ? QMessageBox::Critical : QMessageBox::Warning, u"Dikkat"_s, text,
                    QMessageBox::NoButton, asker());
    box.addButton(u"Tamam"_s, QMessageBox::AcceptRole);
    box.exec();
}

bool WindowPrompt::confirm(const QString &text)
{
    QMessageBox box(QMessageBox::Question, u"Dikkat"_s, text, QMessageBox::NoButton, asker());
    const QPushButton *yes = box.addButton(u"Evet"_s, QMessageBox::YesRole);
    box.setEscapeButton(box.addButton(u"Hayır"_s, QMessageBox::NoRole));
    box.exec();
    return box.clickedButton() == yes;
}
