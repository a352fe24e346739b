#pragma once

#include <QtGlobal>

// The base plugin's benchmarks run headless and keep the log off the
// terminal, unless the caller set these already.
inline void setBenchEnvironment(char const* logLevel = nullptr)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("QUORIX_LOG_STDERR"))
        qputenv("QUORIX_LOG_STDERR", "0");
    if (logLevel && qEnvironmentVariableIsEmpty("QUORIX_LOG_LEVEL"))
        qputenv("QUORIX_LOG_LEVEL", logLevel);
}
