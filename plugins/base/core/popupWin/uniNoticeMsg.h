#pragma once

#include "bridgerecords.h"
#include "msgmgrwininterface.h"

class UniNoticeMsgPrivate;

// The window of one unified notice from the backend: title, optional heading,
// body, a link-like button that jumps into the client or opens a web page, and
// a main button that may count down. The plugin keeps one per notice id and
// passes later notices with that id to updateInfo().
class UniNoticeMsg : public MsgMgrWinInterface
{
    Q_OBJECT
    Q_DECLARE_PRIVATE(UniNoticeMsg)

public:
    UniNoticeMsg(__sUniNoticeMsgInfo info, QWidget* parent);
    ~UniNoticeMsg() override;

    int changUIType(MsgMgrWinInterface::eUIType type) override;
    int updateInfo(__sUniNoticeMsgInfo info);

    // Caption of the main button for a notice's button code.
    static QString buttonCaption(int code);

private:
    void InitControl();
    void connectJump();

    UniNoticeMsgPrivate* d_ptr = nullptr;
};
