#pragma once

#include "bridge_global.h"
#include "bridgerecords.h"

#include <QString>

#include <initializer_list>

// What a caller of the control interface may ask for. Anybody on the user's
// session bus can call it, so every text is capped and every number held to
// the range the windows make sense of; the same rules give quorix-ctl its
// usage errors, so the tool never sends what the client would refuse.
//
// Each check returns "" when the request may go to the backend, else the
// reason in one line (it ends up in a D-Bus error and on a terminal).
class BRIDGE_EXPORT ControlRequestCheck
{
public:
    // Jump kinds of a notice's text button (its number4).
    static constexpr int kJumpNone = -1;
    static constexpr int kJumpUrl = 0;
    static constexpr int kJumpPage = 1;

    static constexpr int kMaxIdLength = 128;
    // Titles, headings, captions: one line in a 380-pixel window.
    static constexpr int kMaxLineLength = 256;
    // Bodies and prompt texts.
    static constexpr int kMaxTextLength = 4096;
    static constexpr int kMaxUrlLength = 2048;
    static constexpr int kMaxObjectNameLength = 128;
    // Count-downs run up to a day; 0 and -1 mean none on a notice and the
    // window's own default on a device pop-up.
    static constexpr int kMinSeconds = -1;
    static constexpr int kMaxSeconds = 86400;
    static constexpr qint64 kMaxLevel = 9;
    // Codes without a caption of their own show "未知", which is worth a demo.
    static constexpr int kMaxButtonCode = 99;
    static constexpr int kMaxPromptType = 4;
    // A century; the tray's hint label has room for no more.
    static constexpr unsigned int kMaxGuardDays = 36500;

    static QString notice(__sUniNoticeMsgInfo const& info);
    static QString devicePopup(__sDeviceMgrPopup const& info);
    static QString powerOrder(int method, int countdown);
    static QString prompt(_sNoticeWinInfo_ const& info);
    static QString guardDays(unsigned int days);
    // A page's object name: what FrameLinkProxy looks pages up by.
    static QString objectName(QString const& name);
    // Links are opened by the desktop's URL handler: http and https with a host only.
    static QString webAddress(QString const& url);

private:
    ControlRequestCheck() = delete;

    static QString length(char const* field, QString const& text, int max);
    static QString range(char const* field, qint64 value, qint64 min, qint64 max);
    // The first non-empty reason of a list of checks.
    static QString first(std::initializer_list<QString> reasons);
};
