#include "platform/printing/pdf_document.h"

#include "platform/printing/pdf_update.h"

#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

qint64 CheckedFile::writeData(const char *data, qint64 size)
{
    const qint64 written = QTemporaryFile::writeData(data, size);
    m_complete = m_complete && written == size;
    return written;
}

PdfDocument::PdfDocument(const QString &folder, const QString &name, const QString &title,
                         const Page &page)
    : m_folder(folder), m_name(name), m_file(folder + u"/XXXXXX.tmp"_s)
{
    if (!QDir().mkpath(folder) || !m_file.open())
        fail();
    m_writer = std::make_unique<QPdfWriter>(&m_file);
    m_writer->setResolution(page.resolution);
    m_writer->setPageLayout(page.layout);
    m_writer->setTitle(title);
    m_writer->setCreator(u"Tezgâh"_s);
}

void PdfDocument::finish()
{
    m_writer.reset();
    appendUpdate();
    m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                          QFile::ReadOther);

    // A file of that name is never replaced: one second may see two documents.
    for (int copy = 1; copy < 1000; ++copy) {
        const QString suffix = copy > 1 ? u"-%1"_s.arg(copy) : QString();
        m_path = m_folder + u'/' + m_name + suffix + u".pdf"_s;
        if (!QFile::exists(m_path) && m_file.rename(m_path)) {
            m_file.setAutoRemove(false);
            m_file.close();
            return;
        }
    }
    fail();
}

void PdfDocument::appendUpdate()
{
    if (!m_file.flush() || !m_file.complete())
        fail();
    const qint64 size = m_file.size();
    uchar *const bytes = m_file.map(0, size);
    if (bytes == nullptr)
        fail();
    const QByteArray update =
        noPrintScaling(QByteArray::fromRawData(reinterpret_cast<const char *>(bytes), size));
    m_file.unmap(bytes);
    if (update.isEmpty() || !m_file.seek(size) || m_file.write(update) != update.size() ||
        !m_file.flush() || !m_file.complete())
        fail();
}

void PdfDocument::fail() const
{
    throw PrintError(u"PDF dosyası yazılamadı. Klasöre yazılabildiğini ve diskte yer olduğunu "
                     u"kontrol ediniz:\n%1"_s.arg(QDir::toNativeSeparators(m_folder)));
}

QString pdfName(const QString &document, const QDateTime &moment)
{
    QString name;
    for (const QChar c : document.left(60))
        if (c.isLetterOrNumber())
            name += c;
        else if (!name.isEmpty() && !name.endsWith(u'-'))
            name += u'-';
    if (!name.isEmpty() && !name.endsWith(u'-'))
        name += u'-';
    return name + moment.toString(u"yyyyMMdd-HHmmss"_s);
}
