#pragma once

#include <QDateTime>

#include <optional>

/// Dates and times as people type and paste them.
namespace typed_moment {

/// What is said of a text that is no date, no time.
inline constexpr QStringView kNoDate =
    u"Tarih anlaşılamadı.\nGün, ay ve yılı yazınız; örneğin: 07.03.2026";
inline constexpr QStringView kNoTime =
    u"Saat anlaşılamadı.\nSaat ve dakikayı yazınız; örneğin: 08:30";

/// "7.3.2026", "07/03/26", "07032026", "070326", "2026-03-07"; without a year ("7.3", "0703") that
/// of `today`, a day alone in its month. Nothing for any other text and for days that do not exist.
std::optional<QDate> date(QStringView text, QDate today);

/// "8:30", "8.30", "0830", "830", "8", with seconds "8:30:15".
std::optional<QTime> time(QStringView text);

/// As the boxes show them: "07.03.2026"; "08:30", with its seconds when it has any.
QString text(QDate date);
QString text(QTime time);

} // namespace typed_moment
