#include "shell/forms/mesaj.h"
#include "support/print_qt.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

Answer answerBy(const Message &message, const std::function<void(mesaj &)> &act)
{
    mesaj box(message);
    QTimer::singleShot(0, &box, [&] { act(box); });
    return box.ask();
}

} // namespace

TEST(MessageForm, ButtonsEscapeAndCloseBoxGiveTheirAnswers)
{
    const auto press = [](const char *name) {
        return [name](mesaj &box) {
            QTest::mouseClick(box.findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
        };
    };
    const auto key = [](Qt::Key k) { return [k](mesaj &box) { QTest::keyClick(&box, k); }; };
    const Message one{u"metin"_s, u"TAMAM"_s, 1, 1};
    const Message two{u"metin"_s, u"ONAY"_s, 2, 2};
    const Message none{u"metin"_s, u""_s, 0, 3};
    EXPECT_EQ(answerBy(one, press("button1")), Answer::yes);
    EXPECT_EQ(answerBy(two, press("button2")), Answer::yes);
    EXPECT_EQ(answerBy(two, press("button3")), Answer::no);
    EXPECT_EQ(answerBy(one, key(Qt::Key_Return)), Answer::yes);
    EXPECT_EQ(answerBy(two, key(Qt::Key_Escape)), Answer::closed);
    EXPECT_EQ(answerBy(none, key(Qt::Key_Escape)), Answer::closed);
    EXPECT_EQ(answerBy(none, [](mesaj &box) { box.close(); }), Answer::closed);
    EXPECT_EQ(answerBy(none,
                       [](mesaj &box) {
                           QTest::keyClick(&box,
                                           Qt::Key_Return); // no button, so Enter does nothing
                           EXPECT_TRUE(box.isVisible());
                           box.close();
                       }),
              Answer::closed);
}

/// On a small screen too, where a window opens no wider than two thirds of it.
TEST(MessageForm, ALongMessageIsWhole)
{
    mesaj box(Message{u"kod seçilmeden satış yapılamaz; "_s.repeated(9), u"ONAY"_s, 3, 2});
    box.show();
    EXPECT_TRUE(box.rect().contains(box.findChild<QLabel *>(u"Label1"_s)->geometry()));
}

TEST(MessageForm, ShowsThePictureAndTheButtonsAsked)
{
    const QStringList pictures = {u""_s, u"i3"_s, u"i2"_s, u"i1"_s, u""_s};
    for (int icon = 0; icon < pictures.size(); ++icon) {
        mesaj box(Message{u"a & <b>"_s, u"UYARI"_s, icon, 1});
        box.show();
        QStringList visible;
        for (const QString &name : {u"i1"_s, u"i2"_s, u"i3"_s})
            if (box.findChild<QLabel *>(name)->isVisible())
                visible += name;
        EXPECT_EQ(visible.join(u','), pictures.at(icon)) << icon;
        EXPECT_EQ(box.windowTitle(), u"UYARI"_s);
        EXPECT_TRUE(box.findChild<QPushButton *>(u"button1"_s)->isVisible());
        EXPECT_FALSE(box.findChild<QPushButton *>(u"button2"_s)->isVisible());
    }
}
