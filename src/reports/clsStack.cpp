#include "reports/clsStack.h"

void clsStack::Clear() {
    items_ = QVariantList{QVariant()};
    hasItems_ = false;
}

int clsStack::Count() const {
    return hasItems_ ? int(items_.size()) : 0;
}

void clsStack::Push(const QVariant& item) {
    if (hasItems_) {
        items_.append(item);
    } else {
        items_ = QVariantList{item};
        hasItems_ = true;
    }
}

QVariant clsStack::Pop() {
    if (!hasItems_)
        return QVariant();
    const QVariant top = items_.last();
    if (items_.size() == 1)
        hasItems_ = false; // the last element stays where it is
    else
        items_.removeLast();
    return top;
}
