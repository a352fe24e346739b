#pragma once

#include "homePageWidget.h"

class CardsWin;
class CQLabel;

class HomePageWidgetPrivate
{
public:
    explicit HomePageWidgetPrivate(HomePageWidget* q);
    ~HomePageWidgetPrivate();

    void InitUI();
    void InitUIWindow();
    void InitUITitle();
    void InitUIDataArea();
    void InitUICardArea();

    // The title style for a given font size.
    static QString titleStyle(int px);

    HomePageWidget* q_ptr = nullptr;
    CQLabel* m_pLabelTitle = nullptr;
    CQLabel* m_pWinDataArea = nullptr;
    CardsWin* m_pCardsWin = nullptr;
};
