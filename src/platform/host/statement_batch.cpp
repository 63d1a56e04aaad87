#include "platform/host/statement_batch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Signs with a meaning beyond the statement they stand in, outside of texts.
bool opensSomething(QStringView rest)
{
    return rest.startsWith(u"--") || rest.startsWith(u"/*") || rest.startsWith(u'"') ||
           rest.startsWith(u'[') || rest.startsWith(u';') || rest.startsWith(QChar(u'\0'));
}

bool isSelfContained(QStringView select)
{
    if (!select.startsWith(u"select ", Qt::CaseInsensitive))
        return false;
    bool inText = false;
    for (qsizetype i = 0; i < select.size(); ++i) {
        if (select.at(i) == u'\'')
            inText = !inText;
        else if (!inText && opensSomething(select.sliced(i)))
            return false;
    }
    return !inText;
}

} // namespace

std::optional<QString> statementBatch(const QStringList &statements)
{
    if (!std::all_of(statements.begin(), statements.end(), isSelfContained))
        return std::nullopt;
    return statements.join(u";\n"_s);
}
