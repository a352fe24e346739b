#pragma once

#include <QStringList>

#if defined(TST_FRAMEWORK_SUPPORT_LIBRARY)
#define TST_SUPPORT_EXPORT __attribute__((visibility("default")))
#else
#define TST_SUPPORT_EXPORT
#endif

// What the test plugins saw, in order, shared by the test program and every
// plugin module it loads (they all link this one library).
class TST_SUPPORT_EXPORT TestJournal
{
public:
    static void append(QString const& line);
    static QStringList lines();
    static int count(QString const& line);
    static void clear();
};
