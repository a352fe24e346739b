#pragma once

#include "bridgerecords.h"

#include <QString>

// The backend records as one line, fields in declaration order with '|'
// between, so that a data table can name a whole record in one cell.
class RecordText
{
public:
    // notice|id|level|heading|title|countdown|button|body|number3|link text|target|jump kind
    static QString of(__sUniNoticeMsgInfo const& info);
    // device|window title|title|content|button text|time|details
    static QString of(__sDeviceMgrPopup const& info);
    // prompt|type|text1|text2|text3|text4
    static QString of(_sNoticeWinInfo_ const& info);
    // power|method|count-down
    static QString power(int method, int countdown);

private:
    RecordText() = delete;
};
