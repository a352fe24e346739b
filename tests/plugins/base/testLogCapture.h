#pragma once

#include "clogdebug.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>

// Sends every record from level 1 up into a file of its own while it lives.
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
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
                                              : QStringList();
    }
    // Records whose message is `text` (a record ends with its message).
    int count(QString const& text) const
    {
        QStringList const all = lines();
        return int(std::count_if(all.cbegin(), all.cend(), [&](QString const& l) { return l.endsWith(text); }));
    }
    // Position of the first such record, -1 if none.
    int indexOf(QString const& text) const
    {
        QStringList const all = lines();
        auto const it = std::find_if(all.cbegin(), all.cend(), [&](QString const& l) { return l.endsWith(text); });
        return it == all.cend() ? -1 : int(it - all.cbegin());
    }

private:
    QTemporaryDir m_dir;
    std::string m_path;
    std::string m_previousPath;
    int m_previousLevel;
};
