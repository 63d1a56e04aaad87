#pragma once

#include <QDate>
#include <QString>

/// The text of the demo shop inside the program: folders `ana` (master database) and `sirket`
/// (company database).
inline constexpr QStringView kDemoText = u":/demo";

/// Makes the embedded databases of the demo shop in the folder, those that are missing there. Each
/// is written beside its place and then renamed: it is there whole or not at all. `today`: the day
/// from which its dates are counted back. Returns whether any was made. Throws HostError, and
/// demo::TextError when the text has a fault.
bool createDemoShop(const QString &directory, QDate today,
                    const QString &text = kDemoText.toString());

/// The same databases as a script for a real SQL Server (sqlcmd -f 65001 -i FILE).
QString demoSqlServerScript(const QString &text = kDemoText.toString());
