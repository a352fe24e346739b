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
        : m_path(m_dir.filePath(QStringLiteral("capture.log")).toStdString())
        , m_previousPath(CLogDebug::singleInstance()->filePath())
        , m_previousLevel(CLogDebug::singleInstance()->minimumLevel())
    {
        CLogDebug::singleInstance()->setFilePath(m_path);
        CLogDebug::singleInstance()->setMinimumLevel(1);
    }
    ~TestLogCapture()
    {
        CLogDebug::singleInstance()->setFilePath(m_previousPath);
        CLogDebug::singleInstance()->setMinimumLevel(m_previousLevel);
    }

    QStringList lines() const
    {
        QFile file(QString::fromStdString(m_path));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts) : QStringList();
    }
    // Lines whose message is `text`.
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
    int indexOf(QString const& text) const
    {
        QStringList const all = lines();
        QStringList const found = matching(text);
        return found.isEmpty() ? -1 : all.indexOf(found.first());
    }

private:
    QTemporaryDir m_dir;
    std::string m_path;
    std::string m_previousPath;
    int m_previousLevel;
};
