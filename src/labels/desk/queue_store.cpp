#include "labels/desk/queue_store.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/turkish.h"
#include "common/whole_file.h"
#include "labels/desk/row_order.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kOpenQueue = u"kuyruk.csv";
constexpr QStringView kPrinted = u"sonbasilan.csv";
constexpr QStringView kFolder = u"kuyruklar";
const QString kEnding = QStringLiteral(".csv");

/// Milliseconds from a change to the disk: a power cut may cost that much, and a thousand counts
/// typed one after another do not write the file a thousand times.
constexpr int kSoon = 1000;

constexpr qsizetype kLongestName = 60;

/// Whether every file system takes it as the name of a file.
bool isFileName(const QString &name)
{
    const QString forbidden = u"/\\:*?\"<>|"_s;
    return !name.isEmpty() && name.size() <= kLongestName && !name.startsWith(u'.') &&
           !name.endsWith(u'.') && std::all_of(name.begin(), name.end(), [&](QChar c) {
               return c.isPrint() && !forbidden.contains(c);
           });
}

/// A name is the same in small letters: for the shop by its alphabet, for Windows' files by theirs.
bool isSameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0 || turkish::lower(a) == turkish::lower(b);
}

} // namespace

QueueStore::QueueStore(Program &program, PrintQueue &queue, QObject *parent)
    : QObject(parent), m_program(program), m_queue(queue)
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoon);
    connect(&m_soon, &QTimer::timeout, this, &QueueStore::write);
}

QueueStore::~QueueStore()
{
    if (m_soon.isActive())
        write();
}

void QueueStore::start()
{
    const queue_file::Content kept = readFile(m_program.path(kOpenQueue));
    m_queue.setRows(kept.rows, kept.added);
    connect(&m_queue, &PrintQueue::changed, &m_soon, qOverload<>(&QTimer::start));
}

void QueueStore::write()
{
    const bool written = writeTo(m_program.path(kOpenQueue));
    if (!written && !m_failed)
        Q_EMIT statusChanged(
            u"Kuyruk diske yazılamıyor: program kapanırsa kaybolur (disk dolu ya da yazma izni yok)."_s);
    m_failed = !written;
}

std::vector<QueueRow> QueueStore::lastPrinted()
{
    return readFile(m_program.path(kPrinted)).rows;
}

/// A disk that does not take it is told of the queue, whose marks are written next.
void QueueStore::keepPrinted(const std::vector<QueueRow> &rows)
{
    writeTextFile(m_program.path(kPrinted), queue_file::text(rows, {}));
}

bool QueueStore::writeTo(const QString &path) const
{
    return writeTextFile(path, queue_file::text(m_queue.rows(), m_queue.placesAdded()));
}

queue_file::Content QueueStore::readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    queue_file::Content content = queue_file::read(file.readAll());
    if (content.damaged > 0)
        Q_EMIT statusChanged(u"%1: %2 satır okunamadı."_s.arg(QFileInfo(path).fileName(),
                                                              amount::whole(content.damaged)));
    return content;
}

QString QueueStore::path(const QString &name) const
{
    const QString kept = keptName(name);
    return m_program.path(kFolder) + u'/' + (kept.isEmpty() ? name : kept) + kEnding;
}

/// The name as it was saved; "" when there is none.
QString QueueStore::keptName(const QString &name) const
{
    const QStringList kept = names();
    const auto same = std::find_if(kept.cbegin(), kept.cend(),
                                   [&](const QString &one) { return isSameName(one, name); });
    return same == kept.cend() ? QString() : *same;
}

QStringList QueueStore::names() const
{
    QStringList files;
    for (const QFileInfo &file :
         QDir(m_program.path(kFolder)).entryInfoList({u'*' + kEnding}, QDir::Files))
        files += file.completeBaseName();
    QStringList names;
    for (const int place : row_order::sorted(files, false, Qt::AscendingOrder))
        names += files.at(place);
    return names;
}

bool QueueStore::exists(const QString &name) const
{
    return !keptName(name).isEmpty();
}

bool QueueStore::save(const QString &name)
{
    if (!isFileName(name)) {
        m_program.caution(
            u"Bu ad kullanılamaz: \"%1\"\nEn çok %2 harf yazınız; / \\ : * ? \" < > | "
            "işaretleri olmasın."_s.arg(name)
                .arg(kLongestName));
        return false;
    }
    QDir().mkpath(m_program.path(kFolder));
    if (!writeTo(path(name))) {
        m_program.warn(u"Kuyruk kaydedilemedi:\n%1"_s.arg(path(name)));
        return false;
    }
    return true;
}

void QueueStore::remove(const QString &name)
{
    if (!QFile::remove(path(name)))
        m_program.warn(u"Silinemedi:\n%1"_s.arg(path(name)));
}
