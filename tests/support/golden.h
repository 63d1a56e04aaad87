#pragma once

#include "support/test_machine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <gtest/gtest.h>

/// Compares `text` with the file tests/golden/NAME. With TEZGAH_REWRITE_GOLDEN=1 in the environment
/// the file is written anew instead; read the difference before you commit it.
inline void expectGolden(const QString &name, const QString &text)
{
    const QString path = sourcePath("/tests/golden/") + name;
    QFile file(path);
    if (qEnvironmentVariableIntValue("TEZGAH_REWRITE_GOLDEN") == 1) {
        QDir().mkpath(QFileInfo(path).path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    EXPECT_EQ(text.toStdString(), QString::fromUtf8(file.readAll()).toStdString())
        << name.toStdString();
}
