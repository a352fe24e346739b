#pragma once

#include <QString>

class CQButton;
class CQCloseBtn;
class CQFrame;
class CQLabel;
class PromptTitleWin;
class QBoxLayout;
class QHBoxLayout;
class QWidget;

// The pieces the unified notice and the device pop-up share: the 48-pixel
// title window of the stand-alone look, the 4-pixel strip with its title row
// of the compact look, the heading and body labels, and the four ways such a
// notice closes. Both windows build the same skeleton; only their fields and
// bottom rows differ.
namespace NoticeWinParts {

// Style of the heading label in the stand-alone (0) and compact (1) look.
QString headingStyle(int uiType);

PromptTitleWin* createTitleWin(QWidget* parent, int type, QString const& title);
// "m_pLabMsgTitle", 332 x 24.
CQLabel* createHeading(QWidget* parent);
// "m_pLabMsgContent": word-wrapped plain text of the given width.
CQLabel* createBody(QWidget* parent, int width, Qt::Alignment alignment);
// The compact look's title row: strip title on the left, close button on the
// right, 24 pixels in from both sides.
QHBoxLayout* createStripRow(QWidget* stripTitle, CQCloseBtn* closeBtn);
CQCloseBtn* createCloseBtn(QWidget* parent);
// "m_pWinBottom": 380 wide, a row 24 pixels in from every side, optional
// widget on the left, the button on the right; as high as its row needs.
CQFrame* createBottom(QWidget* parent, QWidget* left, QWidget* right);

// Elided at the right to fit the label, 16-pixel font; the full text goes to
// the tool tip when cut.
void setElided(CQLabel* label, QString const& text);
// A word-wrapped label's height follows its text at its fixed width.
void fitBodyHeight(CQLabel* body);

// The title window's close, the main button, its count-down running out and
// the strip's close button all close `window`.
void connectClosers(QWidget* window, PromptTitleWin* titleWin, CQButton* mainBtn, CQCloseBtn* closeBtn);

} // namespace NoticeWinParts
