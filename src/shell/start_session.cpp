#include "shell/start_session.h"

#include "shell/host_link.h"

namespace {

/// 88 decimal numbers in text: a permutation of 0 to 83, then 0, 1, 2, 3.
std::array<QString, 88> startTable()
{
    static constexpr std::array<int, 88> numbers = {
        2,  6,  4,  3,  7,  5,  8,  9,  24, 25, 62, 63, 64, 65, 68, 66, 67, 19, 18, 73, 74, 1,
        20, 59, 60, 61, 23, 71, 22, 21, 16, 13, 14, 15, 72, 10, 11, 12, 49, 28, 54, 69, 76, 77,
        50, 57, 47, 0,  75, 55, 56, 51, 53, 82, 83, 46, 43, 44, 45, 40, 41, 42, 52, 58, 70, 29,
        79, 80, 78, 31, 81, 30, 48, 33, 17, 26, 34, 35, 36, 27, 37, 38, 39, 32, 0,  1,  2,  3};
    std::array<QString, 88> texts;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        texts[i] = QString::number(numbers[i]);
    return texts;
}

} // namespace

StartSession::StartSession(Program &program, HostLink &link, QObject *parent)
    : QObject(parent), m_program(program), m_link(link)
{}

void StartSession::load()
{
    m_link.sqlbaglan();
    m_program.sira = startTable();
}

void StartSession::firstTick()
{
    if (m_link.masterOpen())
        Q_EMIT stockListWanted();
    else
        Q_EMIT connectionDialogWanted();
}
