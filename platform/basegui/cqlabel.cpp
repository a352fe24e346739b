#include "cqlabel.h"

#include "clogdebug.h"

#include <QFontMetrics>
#include <QResizeEvent>
#include <QTextDocument>

namespace {

char const* const kModule = "platform/basegui/cqlabel";

// Dynamic properties on the label, so that the static helpers work on any
// QLabel and a later call can tell its own tool tip from the owner's.
char const* const kPropFullText = "cqlabel_fullText";
char const* const kPropTipSet = "cqlabel_tipSet";
char const* const kPropFontPx = "cqlabel_fontPx";
char const* const kPropMode = "cqlabel_mode";
char const* const kPropReserve = "cqlabel_reserve";
char const* const kPropShown = "cqlabel_shown";

} // namespace

// Plain by default: most texts shown here come from the backend or from
// other plugins, and Qt would guess that a text with a '<' in it is markup.
CQLabel::CQLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

CQLabel::CQLabel(QString const& text, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

CQLabel::~CQLabel() = default;

void CQLabel::LabelWidthAdjustText(QLabel* label, QString const& text, Qt::TextElideMode mode)
{
    if (!label) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQLabel] label is null");
        return;
    }
    label->ensurePolished();
    label->setProperty(kPropFontPx, 0);
    fitText(label, label->font(), text, mode, 0);
}

void CQLabel::TextWidthAdjustLabel(QLabel* label, int fontPixelSize, QString const& text, Qt::TextElideMode mode, int reserve)
{
    if (!label) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQLabel] label is null");
        return;
    }
    label->ensurePolished();
    QFont font = label->font();
    if (fontPixelSize > 0)
        font.setPixelSize(fontPixelSize);
    label->setProperty(kPropFontPx, fontPixelSize);
    fitText(label, font, text, mode, reserve);
}

QString CQLabel::fullText(QLabel const* label)
{
    if (!label)
        return QString();
    QVariant const full = label->property(kPropFullText);
    return full.isValid() ? full.toString() : label->text();
}

void CQLabel::fitText(QLabel* label, QFont const& font, QString const& text, Qt::TextElideMode mode, int reserve)
{
    label->setProperty(kPropFullText, text);
    label->setProperty(kPropMode, static_cast<int>(mode));
    label->setProperty(kPropReserve, reserve);
    // Texts fitted here come from the backend and from other plugins; as rich
    // text a stray '<' would swallow the rest, and eliding would cut markup.
    label->setTextFormat(Qt::PlainText);

    int const available = label->contentsRect().width() - 2 * label->margin() - qMax(0, reserve);
    QString shown = text;
    // A label with no width yet cannot be measured against; show all of it.
    if (available > 0 && label->contentsRect().width() > 0)
        shown = QFontMetrics(font).elidedText(text, mode, available);
    label->setText(shown);
    label->setProperty(kPropShown, shown);

    bool const elided = shown != text;
    if (elided) {
        // Qt guesses a tool tip's format; a text that looks like markup is
        // escaped so that it shows as it is written.
        label->setToolTip(Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text);
        label->setProperty(kPropTipSet, true);
    } else if (label->property(kPropTipSet).toBool()) {
        label->setToolTip(QString());
        label->setProperty(kPropTipSet, false);
    }
}

void CQLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    QVariant const full = property(kPropFullText);
    if (!full.isValid() || m_refitting || event->size().width() == event->oldSize().width())
        return;
    // The owner set another text directly since; that one is not ours to fit.
    if (text() != property(kPropShown).toString())
        return;
    m_refitting = true;
    QFont font = this->font();
    int const px = property(kPropFontPx).toInt();
    if (px > 0)
        font.setPixelSize(px);
    fitText(this, font, full.toString(), static_cast<Qt::TextElideMode>(property(kPropMode).toInt()), property(kPropReserve).toInt());
    m_refitting = false;
}
