#pragma once

#include <QFlags>
#include <QtGlobal>

/// A colour: `$00BBGGRR`, or `$FF000000` plus the index of a system colour that is resolved when
/// it is drawn.
using TColor = quint32;

/// The system colour of an index.
constexpr TColor ZtSystemColor(quint32 index) { return 0xFF000000u + index; }

/// A colour of the desktop, of the widget's palette when it is drawn.
inline constexpr TColor clWindow = ZtSystemColor(5);
inline constexpr TColor clWindowText = ZtSystemColor(8);
inline constexpr TColor clHighlight = ZtSystemColor(13);
inline constexpr TColor clHighlightText = ZtSystemColor(14);
inline constexpr TColor clBtnFace = ZtSystemColor(15);
inline constexpr TColor clBtnShadow = ZtSystemColor(16);
inline constexpr TColor clBtnHighlight = ZtSystemColor(20);

/// A colour of its own, the same on every desktop.
inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clMaroon = 0x000080;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clOlive = 0x008080;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clPurple = 0x800080;
inline constexpr TColor clTeal = 0x808000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clYellow = 0x00FFFF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clAqua = 0xFFFF00;
inline constexpr TColor clWhite = 0xFFFFFF;

/// How a text is drawn.
enum class TFontStyle : quint8 { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
Q_DECLARE_FLAGS(TFontStyles, TFontStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(TFontStyles)

/// What a component is told about another one in `Notification`.
enum class TOperation : quint8 { opInsert, opRemove };
