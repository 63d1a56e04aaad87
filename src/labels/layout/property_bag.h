#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

/// What a form keeps of its controls: values by property key, compared without regard to case.
class PropertyBag
{
public:
    /// The value of a key, or `fallback` when it is missing.
    QVariant read(const QString &key, const QVariant &fallback) const
    {
        return m_values.value(key.toCaseFolded(), fallback);
    }
    void write(const QString &key, const QVariant &value)
    {
        m_values.insert(key.toCaseFolded(), value);
    }

private:
    QMap<QString, QVariant> m_values;
};
