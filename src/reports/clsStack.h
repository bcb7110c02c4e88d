#pragma once
// A stack of variants. The array behind it keeps one element when it is emptied by a
// pop; a flag, not the array's size, says whether the stack holds anything.
#include <QVariant>
#include <QVariantList>

class clsStack {
public:
    // One empty element, and the stack counts as empty.
    void Clear();
    int Count() const;
    void Push(const QVariant& item);
    // An invalid variant when the stack is empty.
    QVariant Pop();

    // The array as it stands, for inspection.
    const QVariantList& items() const { return items_; }

private:
    QVariantList items_;
    bool hasItems_ = false;
};
