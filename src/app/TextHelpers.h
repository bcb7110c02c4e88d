#pragma once
// Small text helpers that the forms and reports share.
#include <QString>
#include <QStringList>

// Reads a date laid out by `mask` and writes it with `format` (see Format.h). The upper-cased
// mask letter at each position says what the text's character there is: D day, M month,
// Y year, H hour, N minute, S second; other mask letters are skipped, as are characters of
// the text that are not digits. A part with no digits counts 0, so a text shorter than its
// mask leaves the later parts 0. A year below 100 follows the two-digit window of date
// composition (0-29 the 2000s, 30-99 the 1900s), so a missing year reads as 2000. A day or
// month of 0, a day the month does not have, or a time beyond 23:59:59 is no date: "".
// ParseDateByMask("31/01/2012", "dd/mm/yyyy", "yyyy mmm dd") == "2012 Jan 31".
QString ParseDateByMask(const QString& text, const QString& mask, const QString& format);

// A format text for amounts: "£#,###,###,##0", with ".00" for kind 1, without the commas
// when noThousands.
QString GetMoneyFormat(int kind, bool noThousands);

// "£12.50" -> "12.50", "£-12.50" -> "-12.50"; other text as it stands.
QString StripPound(const QString& text);

// The words of a text between blanks, in reading order; runs of blanks give no empty words.
QStringList SplitWords(const QString& text);

bool ListContains(const QStringList& list, const QString& value); // exact match
int FindInList(const QStringList& list, const QString& value);    // index or -1, exact match

// Ascending in text order without regard to case; equal texts keep their order.
QStringList SortStrings(QStringList list);

// Exactly one "/" between the two: trailing "/" of a and leading "/" of b are dropped.
QString JoinPath(const QString& a, const QString& b);

// The word wrap of the printed tables. While the rest is longer than `limit`, a line ends at
// the last blank among its first `limit` characters (the blank is dropped); with no blank
// there, the line takes limit + 1 characters. Lines are trimmed. An empty text is one empty
// line; a limit below 1 leaves the text whole.
QStringList WrapWords(const QString& text, int limit = 30);
