#include "uZtBlobStream.h"

#include "uZtField.h"

TBlobStream::TBlobStream(TField *AField, TBlobStreamMode AMode) : FField(AField), FMode(AMode)
{
    if (AMode == TBlobStreamMode::bmWrite)
        AField->CheckStore();
    else
        setData(AField->GetAsBytes());
    open(AMode == TBlobStreamMode::bmWrite ? QIODevice::WriteOnly : QIODevice::ReadOnly);
}

TBlobStream::~TBlobStream()
{
    try {
        TBlobStream::close();
    } catch (...) {
        // a destructor has no one to tell
    }
}

void TBlobStream::close()
{
    if (!isOpen())
        return;
    QBuffer::close();
    if (FMode == TBlobStreamMode::bmWrite)
        FField->StoreBytes(data());
}
