#pragma once

#include "uZtExport.h"

#include <QBuffer>

class TField;

/// What a stream over a field is opened for.
enum class TBlobStreamMode : quint8 {
    bmRead, ///< the field's bytes
    bmWrite ///< empty; the field takes over what was written
};

/// The bytes of a field as a stream. Text is UTF-8.
class ZT_DBEDITOR_EXPORT TBlobStream : public QBuffer {
    Q_OBJECT

public:
    /// Opens the stream. `bmWrite` raises `EDatabaseError` when the field cannot be stored into.
    TBlobStream(TField *AField, TBlobStreamMode AMode);
    /// Closes the stream; what storing raises is lost then.
    ~TBlobStream() override;

    /// Stores what was written, without a validation, and raises what storing raises. Nothing
    /// happens when the stream is closed already.
    void close() override;

private:
    TField *FField;
    TBlobStreamMode FMode;
};
