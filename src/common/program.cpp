#include "common/program.h"

#include "common/host_error.h"

using namespace Qt::StringLiterals;

QString Program::path(QStringView name) const
{
    return m_directory + u"/"_s + name.toString();
}

bool Program::isOpen(const std::unique_ptr<HostConnection> &connection)
{
    return connection && connection->state() == 1;
}

HostConnection &Program::company()
{
    if (!isOpen(bag) && reopen)
        reopen();
    return openCompany();
}

HostConnection &Program::openCompany()
{
    if (!isOpen(bag))
        throw bagFailure.value_or(
            HostError(HostError::kConnectionLost, u"Şirket veritabanı bağlantısı açık değil."_s));
    return *bag;
}

bool Program::mesajgoster(const QString &text, int kind, int icon, int buttons)
{
    static const std::array<QString, 5> captions = {QString(), u"TAMAM"_s, u"DİKKAT"_s, u"UYARI"_s,
                                                    u"ONAY"_s};
    const bool known = kind >= 1 && kind <= 4;
    const QString caption = known ? captions[static_cast<std::size_t>(kind)] : QString();
    cevap = static_cast<int>(prompt.show(Message{text, caption, icon, buttons}));
    const bool confirmed = cevap == 1;
    cevap = 0;
    return confirmed;
}

void Program::tell(const QString &text, int icon)
{
    mesajgoster(text, 1, icon, 1);
}

void Program::caution(const QString &text)
{
    mesajgoster(text, 2, 3, 1);
}

void Program::warn(const QString &text)
{
    mesajgoster(text, 3, 3, 1);
}

bool Program::ask(const QString &text)
{
    return mesajgoster(text, 4, 3, 2);
}

void Program::report(const std::exception &error)
{
    using Cause = HostError::Cause;
    const QString text = QString::fromUtf8(error.what());
    const auto *fault = dynamic_cast<const HostError *>(&error);
    if (!fault || fault->cause() == Cause::file || fault->cause() == Cause::damaged) {
        warn(text);
        return;
    }
    QString told = u"Veritabanı hatası (%1):\n%2"_s.arg(fault->number()).arg(text);
    if (fault->connectionLost() &&
        (fault->cause() == Cause::unknown || fault->cause() == Cause::silent))
        told += u"\n\nİşlemi yineleyin: sunucuya yeniden bağlanılır."_s;
    warn(told);
}
