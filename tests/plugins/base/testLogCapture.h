#pragma once

#include "clogdebug.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

// Sends every record from level 1 up into a fresh file of its own for the
// lifetime of the object, and reads back the message part of each line (the
// text after the "function:line " field), which is exactly what the code
// formatted.
class TestLogCapture
{
public:
    TestLogCapture()
    {
        m_path = m_dir.filePath(QStringLiteral("capture.log"));
        m_previousLevel = CLogDebug::singleInstance()->minimumLevel();
        m_previousPath = CLogDebug::singleInstance()->filePath();
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

    // Lines whose message ends with `text`.
    QStringList matching(QString const& text) const
    {
        QStringList out;
        for (QString const& line : lines()) {
            if (line.endsWith(text))
                out << line;
        }
        return out;
    }

    int count(QString const& text) const { return matching(text).size(); }

    // Position of the first line ending with `text`, -1 if none.
    int indexOf(QString const& text) const
    {
        QStringList const all = lines();
        for (int i = 0; i < all.size(); ++i) {
            if (all.at(i).endsWith(text))
                return i;
        }
        return -1;
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
    std::string m_previousPath;
    int m_previousLevel = 2;
};
