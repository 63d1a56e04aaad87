#pragma once

#include "common/clock.h"
#include "common/key_file.h"
#include "labels/designer/design.h"

#include <optional>

/// A design that was open when the program ended unexpectedly.
struct RecoveredDesign
{
    Design design;
    QString name;   ///< of its layout file, "" when it had none yet
    QDateTime when; ///< the copy was made
};

/// Where designs are kept: the layout in its file of the folder `ayar`, what the designer remembers
/// beside it (locks, guides, the label's own size) in `ayar/Tasarim.zev`, and a copy of unsaved
/// work in `ayar/Kurtarma.zev`.
class DesignFiles
{
public:
    /// `directory`: the working folder.
    DesignFiles(KeyFile &keys, Clock &clock, const QString &directory)
        : m_keys(keys), m_clock(clock), m_directory(directory)
    {}

    bool exists(const QString &fileName) const;

    /// A missing or unreadable file gives an empty design.
    Design open(const QString &fileName) const;

    /// Writes the layout's file and what is remembered beside it. False when the layout could not
    /// be written; its old file is then unharmed.
    bool save(const QString &fileName, const Design &design);

    /// An empty file of a name that is not there yet; false when it cannot be made.
    bool create(const QString &fileName);
    void remove(const QString &fileName);

    /// False when it could not be written.
    bool keepCopy(const QString &fileName, const Design &design);
    void dropCopy();
    std::optional<RecoveredDesign> copy() const;

private:
    QString path(const QString &fileName) const;
    void saveNotes(const QString &section, const Design &design, const QString &file);
    void readNotes(const QString &section, Design &design, const QString &file) const;

    KeyFile &m_keys;
    Clock &m_clock;
    QString m_directory;
};

/// Why a layout cannot bear this name, for the user; "" when it can. Names are checked for all the
/// systems a shop may copy its folder to.
QString nameProblem(const QString &name);
