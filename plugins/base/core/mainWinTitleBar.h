#pragma once

#include "bridgerecords.h"
#include "cqframe.h"

#include <cstdint>

class MainWinTitleBarPrivate;

// Which slot area of the title bar a widget goes to. Other values name no area.
enum eBaseTitleBarDir : int32_t {
    EBASETITLEBARDIR_LEFT = 0,
    EBASETITLEBARDIR_RIGHT = 1,
};

// Position key inside an area: keys order the widgets and need not be
// contiguous. The title bar's own widgets take these keys of the right area;
// every other key of both areas is free for other plugins (51..249 stands
// between the day counter and the drop-down button).
enum eBaseTitleBarObjPosID : int32_t {
    EBASETITLEBAROBJPOS_CLOUDBRAIN = 50,
    EBASETITLEBAROBJPOS_DROPDOWN = 250,
    EBASETITLEBAROBJPOS_MIN = 300,
    EBASETITLEBAROBJPOS_CLOSE = 350,
};

// The frameless strip across the top of the main window: the logo, a left and
// a right slot area that plugins fill by position, and the standard controls.
// Its buttons only emit signals; the plugin core decides what they do.
// Registered widgets belong to whoever registered them.
class MainWinTitleBar : public CQFrame
{
    Q_OBJECT
    friend class MainWinTitleBarPrivate;

public:
    explicit MainWinTitleBar(QWidget* parent = nullptr);
    ~MainWinTitleBar() override;

    // The first registration at a position wins; a later one is dropped
    // without a trace. A null widget is ignored.
    void registerWin(QWidget* w, eBaseTitleBarDir dir, eBaseTitleBarObjPosID pos);
    // Hides and detaches `w` in any case, then frees the position (by key
    // alone: the registration at that position is the one removed).
    void unRegisterWin(QWidget* w, eBaseTitleBarDir dir, eBaseTitleBarObjPosID pos);
    void setBackgroundColor(QString const& titleColor, QString const& logoColor);
    // Triggers the message centre's unread count; the bar does not show it.
    void getUnreadMsgCount();

signals:
    void sig_minimize();
    void sig_close();
    void sig_setting();

public slots:
    void slot_updateCloudBrainDays(int days);
    void slot_base_info(__sBaseModuleBaseInfo info);
    void slot_minimize();
    void slot_close();
    void slot_setting();

private:
    MainWinTitleBarPrivate* d_ptr = nullptr;
};
