#include "cqlabelmultifontsize.h"

#include "clogdebug.h"

namespace {

char const* const kModule = "platform/basegui/cqlabelmultifontsize";
// More pieces than this on one line is a caller's mistake, not a design.
int const kMaxPieces = 64;

} // namespace

CQLabelMultiFontSize::CQLabelMultiFontSize(int count, QWidget* parent)
    : QLabel(parent)
{
    if (count < 0 || count > kMaxPieces) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQLabelMultiFontSize] bad piece count [%d]", count);
        count = qBound(0, count, kMaxPieces);
    }
    m_pieces.resize(count);
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setOpenExternalLinks(false);
}

CQLabelMultiFontSize::~CQLabelMultiFontSize() = default;

int CQLabelMultiFontSize::count() const
{
    return m_pieces.size();
}

void CQLabelMultiFontSize::updateContent(int index, QString const& text, QString const& style)
{
    if (index < 0 || index >= m_pieces.size()) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQLabelMultiFontSize] index [%d] out of range, count is [%d]", index,
                    m_pieces.size());
        return;
    }
    m_pieces[index].text = text;
    m_pieces[index].style = style;
    render();
}

QString CQLabelMultiFontSize::pieceText(int index) const
{
    return index >= 0 && index < m_pieces.size() ? m_pieces.at(index).text : QString();
}

QString CQLabelMultiFontSize::pieceStyle(int index) const
{
    return index >= 0 && index < m_pieces.size() ? m_pieces.at(index).style : QString();
}

QString CQLabelMultiFontSize::plainText() const
{
    QString joined;
    for (Piece const& piece : m_pieces)
        joined += piece.text;
    return joined;
}

void CQLabelMultiFontSize::render()
{
    // Both the texts and the styles arrive from other plugins and the backend:
    // escaped, a '<' stays a character and a '"' cannot end the attribute.
    QString html;
    for (Piece const& piece : m_pieces) {
        if (piece.text.isEmpty())
            continue;
        html += QStringLiteral("<span style=\"%1\">%2</span>").arg(piece.style.toHtmlEscaped(), piece.text.toHtmlEscaped());
    }
    setText(html);
}
