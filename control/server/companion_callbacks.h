#pragma once

#include "control/server/companion_sink.h"

namespace mavrin2::server {

// What the control does at each companion's events. Positions are in sample frames from the start
// of the device; levels are the companion's own.

class PlaybackReactions {
public:
    virtual ~PlaybackReactions() = default;
    virtual void FeedBlock() = 0;
    virtual void UpdatePlayCursor(LONG frames) = 0;
    virtual void Meter(LONG left, LONG right) = 0;
    virtual void EndOfData() = 0;
};

class CaptureReactions {
public:
    virtual ~CaptureReactions() = default;
    virtual void StoreRecordedBlock() = 0;
    virtual void UpdateRecordCursor(LONG frames) = 0;
    virtual void Meter(LONG left, LONG right) = 0;
    virtual void GainChange(LONG volume) = 0;
};

class TransformReactions {
public:
    virtual ~TransformReactions() = default;
    virtual void ReportTransformProgress(LONG percent) = 0;
};

class CdReactions {
public:
    virtual ~CdReactions() = default;
    // Shows the progress and raises BlockOperation.
    virtual void ShowProgress(LONG percent) = 0;
};

// One sink for each companion that reports.

class CVeltoCallback final : public CompanionSink {
public:
    explicit CVeltoCallback(PlaybackReactions& control);

private:
    HRESULT Handle(DISPID event, const EventArguments& arguments) override;
    PlaybackReactions& control_;
};

class CRimbalCallback final : public CompanionSink {
public:
    explicit CRimbalCallback(CaptureReactions& control);

private:
    HRESULT Handle(DISPID event, const EventArguments& arguments) override;
    CaptureReactions& control_;
};

class CKestrinCallback final : public CompanionSink {
public:
    explicit CKestrinCallback(TransformReactions& control);

private:
    HRESULT Handle(DISPID event, const EventArguments& arguments) override;
    TransformReactions& control_;
};

class CPindleCallback final : public CompanionSink {
public:
    explicit CPindleCallback(CdReactions& control);

private:
    HRESULT Handle(DISPID event, const EventArguments& arguments) override;
    CdReactions& control_;
};

}  // namespace mavrin2::server
