#pragma once

/// Somebody who looks at an editor as a user does, for one who cannot.
class TZtEditWatcher {
public:
    /// Something that can be seen may be other: the text, the caret, the selection, a mark. Told in
    /// the middle of operations: it only remembers to look later.
    virtual void Seen() = 0;

protected:
    ~TZtEditWatcher() = default;
};
