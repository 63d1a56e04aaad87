#pragma once

#include "common/prompt.h"

#include <QImage>
#include <QSize>

/// What is known of a picture file without drawing it.
struct PictureFacts
{
    QSize size;      ///< dots; empty when it cannot be read
    QString problem; ///< why it will not print, for the user; "" when it will
};

/// The pictures of the layouts, `ayar/pic`, and how new ones come in.
class PictureFolder
{
public:
    /// `directory`: the working folder.
    PictureFolder(Prompt &prompt, const QString &directory)
        : m_prompt(prompt), m_directory(directory)
    {}

    /// Names of the picture files, in alphabetical order.
    QStringList names() const;
    QString path() const;

    PictureFacts facts(const QString &file) const;
    /// The picture no larger than `most`; null when it cannot be shown.
    QImage preview(const QString &file, QSize most) const;

    /// Brings in a picture from anywhere: one that lies elsewhere is copied in after asking.
    /// Returns its name in the folder, "" when the user declined or it is no picture (told).
    QString bringIn(const QString &path);

private:
    QString copyIn(const QString &path);

    Prompt &m_prompt;
    QString m_directory;
};
