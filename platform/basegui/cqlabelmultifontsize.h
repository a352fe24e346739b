#pragma once

#include "basegui_global.h"

#include <QLabel>
#include <QStringList>
#include <QVector>

// One line made of `count` pieces, each with its own style (font, size, colour).
class BASEGUI_EXPORT CQLabelMultiFontSize : public QLabel
{
    Q_OBJECT
public:
    explicit CQLabelMultiFontSize(int count, QWidget* parent = nullptr);
    ~CQLabelMultiFontSize() override;

    int count() const;
    // Sets piece `index` (0-based) to `text` drawn with the CSS declarations in
    // `style` (e.g. "font-size:14px;color:#515260;"). Out-of-range indexes are ignored.
    void updateContent(int index, QString const& text, QString const& style);
    QString pieceText(int index) const;
    QString pieceStyle(int index) const;
    // The pieces' texts joined, as a reader sees them.
    QString plainText() const;

private:
    struct Piece
    {
        QString text;
        QString style;
    };
    void render();

    QVector<Piece> m_pieces;
};
