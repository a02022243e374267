#pragma once

#include "uZtPlatform.h"

#include <QStringList>

#include <gtest/gtest.h>

/// Answers the message boxes of a test and keeps what they said.
class TMessageBoxes : public testing::Test {
protected:
    TMessageBoxes()
    {
        const auto box = [this](const QString &text, const QString &) {
            Asked.append(text);
            return Answer;
        };
        ZtPlatform().MsgBoxInfo = box;
        ZtPlatform().MsgBoxError = box;
        ZtPlatform().MsgBoxConfirm = box;
        ZtPlatform().MsgBoxYesNo = box;
        ZtPlatform().MsgBoxYesNoCancel = box;
    }
    ~TMessageBoxes() override { ZtPlatform() = ZtDefaultPlatform(); }

    QStringList Asked;
    int Answer = mrYes;
};
