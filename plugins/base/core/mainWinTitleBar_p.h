#pragma once

#include "mainWinTitleBar.h"

#include <QMap>
#include <QMutex>
#include <QPointer>

class CQCloseBtn;
class CQCloudBrainLabel;
class CQDropDownBtn;
class CQLogoTitle;
class CQMinBtn;
class QHBoxLayout;

// State of MainWinTitleBar. The maps hold guarded pointers: a widget that its
// owner deletes while registered simply drops out of the next relayout.
class MainWinTitleBarPrivate
{
public:
    using AreaMap = QMap<int32_t, QPointer<QWidget>>;

    explicit MainWinTitleBarPrivate(MainWinTitleBar* q);
    ~MainWinTitleBarPrivate();

    void InitUI();
    void InitUILogo();
    void InitUIArea();
    void InitUIControls();

    // Lays out the left area, then the right one, each under its own mutex.
    void resetUI();
    static void resetArea(QHBoxLayout* layout, CQFrame* area, AreaMap& map, QMutex& mutex);

    // The area's map and mutex, or false for a direction that names no area.
    bool area(eBaseTitleBarDir dir, AreaMap*& map, QMutex*& mutex);

    MainWinTitleBar* q_ptr = nullptr;

    CQFrame* m_pLogoTitleBackground = nullptr;
    CQFrame* m_pLeftArea = nullptr;
    CQFrame* m_pRightArea = nullptr;
    QHBoxLayout* m_pLeftLayout = nullptr;
    QHBoxLayout* m_pRightLayout = nullptr;
    CQCloudBrainLabel* m_pCloudBrainLabel = nullptr;
    CQDropDownBtn* m_pBtnDropDown = nullptr;
    CQMinBtn* m_pBtnMin = nullptr;
    CQCloseBtn* m_pBtnClose = nullptr;
    CQLogoTitle* m_pLogoTitle = nullptr;

    AreaMap m_mapLeft;
    QMutex m_mutexLeft;
    AreaMap m_mapRight;
    QMutex m_mutexRight;
};
