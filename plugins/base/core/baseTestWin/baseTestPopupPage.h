#pragma once

#include "baseTestPage.h"

#include "bridgerecords.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

// The pop-ups: unified notices (every field of __sUniNoticeMsgInfo, the id
// that lets a second notice update the first one included) and device-control
// pop-ups (every field of __sDeviceMgrPopup). Nothing is filled in for the
// tester: an empty id or an empty window title reaches the plugin as it is,
// so its own fallbacks and refusals can be watched too.
class BaseTestPopupPage : public BaseTestPage
{
    Q_OBJECT
public:
    explicit BaseTestPopupPage(QWidget* parent = nullptr);
    ~BaseTestPopupPage() override;

    // The records as the fields stand.
    __sUniNoticeMsgInfo notice() const;
    __sDeviceMgrPopup devicePopup() const;

private:
    void InitUINotice();
    void InitUINoticeJump(QFormLayout* form);
    void InitUIDevice();
    QString checkNotice() const;

    QLineEdit* m_pEditNoticeId = nullptr;
    QSpinBox* m_pSpinNoticeLevel = nullptr;
    QLineEdit* m_pEditNoticeHeading = nullptr;
    QLineEdit* m_pEditNoticeTitle = nullptr;
    QSpinBox* m_pSpinNoticeCountDown = nullptr;
    QSpinBox* m_pSpinNoticeButton = nullptr;
    QPlainTextEdit* m_pEditNoticeBody = nullptr;
    QSpinBox* m_pSpinNoticeNumber3 = nullptr;
    QLineEdit* m_pEditNoticeLinkText = nullptr;
    QComboBox* m_pComboNoticeJumpKind = nullptr;
    QLineEdit* m_pEditNoticeTarget = nullptr;

    QLineEdit* m_pEditDeviceWinTitle = nullptr;
    QLineEdit* m_pEditDeviceTitle = nullptr;
    QPlainTextEdit* m_pEditDeviceContent = nullptr;
    QLineEdit* m_pEditDeviceBtnText = nullptr;
    QSpinBox* m_pSpinDeviceTime = nullptr;
    QPlainTextEdit* m_pEditDeviceDetails = nullptr;
};
