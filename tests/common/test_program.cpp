#include "common/program.h"
#include "fakes/fake_ports.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MessageBox, CaptionsFollowTheKindAndTheAnswerValueIsReset)
{
    FakeMachine machine;
    const QStringList captions = {u""_s, u"TAMAM"_s, u"DİKKAT"_s, u"UYARI"_s, u"ONAY"_s, u""_s};
    for (int kind = 0; kind < captions.size(); ++kind) {
        machine.program.mesajgoster(u"metin"_s, kind, 1, 1);
        EXPECT_EQ(machine.prompt.shown.back().caption, captions.at(kind)) << kind;
    }
    for (const Answer answer : {Answer::yes, Answer::no, Answer::closed}) {
        machine.prompt.answers = {answer};
        EXPECT_EQ(machine.program.mesajgoster(u"?"_s, 4, 1, 2), answer == Answer::yes);
        EXPECT_EQ(machine.program.cevap, 0);
    }
}

TEST(RecordSet, FieldsAreReadByNameInTurkishForm)
{
    RecordSet rows({u"STKKOD"_s, u"FIYAT"_s, u"TARIH"_s, u"BOS"_s},
                   {{u"A1"_s, 12.5, QDate(2026, 3, 7), QVariant()}});
    EXPECT_EQ(rows.text(u"stkkod"), u"A1"_s);
    EXPECT_EQ(rows.text(u"FIYAT"), u"12,5"_s);
    EXPECT_EQ(rows.text(u"TARIH"), u"07.03.2026"_s);
    EXPECT_EQ(rows.text(u"BOS"), QString());
    EXPECT_EQ(rows.number(u"BOS"), 0.0);
    EXPECT_THROW(rows.number(u"STKKOD"), HostError);
    EXPECT_THROW(rows.text(u"YOK"), HostError);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_THROW(rows.text(u"STKKOD"), HostError);
}

TEST(Handlers, AFailureIsShownAndTheProgramGoesOn)
{
    FakeMachine machine;
    machine.program.handle([&] { machine.program.company().execute(u"select 1"_s); });
    ASSERT_EQ(machine.prompt.shown.size(), 1U);
    EXPECT_TRUE(machine.prompt.shown[0].text.contains(u"-2147467259"_s));
}
