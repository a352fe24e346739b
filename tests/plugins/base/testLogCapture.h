#pragma once

#include "clogdebug.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

// Sends every record from level 1 up into a file of its own while it lives;
// a record's message is the end of its line, exactly as the code formatted it.
class TestLogCapture
{
public:
    TestLogCapture()
        : m_path(m_dir.filePath(QStringLiteral("capture.log")))
        , m_previousPath(CLogDebug::singleInstance()->filePath())
        , m_previousLevel(CLogDebug::singleInstance()->minimumLevel())
    {
        CLogDebug::singleInstance()->setFilePath(m_path.toStdString());
        CLogDebug::singleInstance()->setMinimumLevel(1);
    }
    ~TestLogCapture()
    {
        CLogDebug::singleInstance()->setFilePath(m_previousPath);
        CLogDebug::singleInstance()->setMinimumLevel(m_previousLevel);
    }

    QStringList lines() const
    {
        QFile file(m_path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    // Position of the first line whose message is `text`, -1 if none.
    int indexOf(QString const& text) const
    {
        QStringList const all = lines();
        for (int i = 0; i < all.size(); ++i) {
            if (all.at(i).endsWith(text))
                return i;
        }
        return -1;
    }

    int count(QString const& text) const
    {
        int n = 0;
        for (QString const& line : lines())
            n += line.endsWith(text);
        return n;
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
    std::string m_previousPath;
    int m_previousLevel;
};
