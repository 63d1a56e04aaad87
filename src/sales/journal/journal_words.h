#pragma once

#include <QStringView>

/// Words of the journal's tables.
namespace journal {

// States of a sale.
inline constexpr QStringView kUnderWay = u"acik"; ///< being posted, or cut off
inline constexpr QStringView kWhole = u"tam";
inline constexpr QStringView kIncomplete = u"eksik";
inline constexpr QStringView kUncertain = u"belirsiz"; ///< perhaps nothing was written
inline constexpr QStringView kByHand = u"elle";        ///< completed in the ledger by somebody

/// Sales that something is still to be done about.
inline constexpr QStringView kOpenCondition = u"durum IN ('acik','eksik','belirsiz')";

/// Sales that stand in the ledger, or were completed by hand.
inline constexpr QStringView kSold = u"durum IN ('tam','eksik','elle')";

// Kinds of a list's events.
inline constexpr QStringView kLine = u"satir";
inline constexpr QStringView kRemoved = u"sil";
inline constexpr QStringView kCash = u"nakit";
inline constexpr QStringView kCleared = u"bosalt";
inline constexpr QStringView kPayment = u"odeme";
inline constexpr QStringView kCustomer = u"musteri";
inline constexpr QStringView kCashier = u"kasiyer";

// How a sale was paid.
inline constexpr QStringView kCashPaid = u"nakit";
inline constexpr QStringView kCard = u"kart";

} // namespace journal
