#pragma once

#include "control/server/container/container_part.h"
#include "control/server/container/notifications.h"

namespace mavrin2::server {

// The control keeps its size in a container's document, and nothing else: twelve bytes in a stream.
class StreamPersistence final : public ContainerPart<IPersistStreamInit> {
public:
    StreamPersistence(IUnknown* identity, ContainerState& state)
        : ContainerPart(identity), state_(state) {}

    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;

private:
    ContainerState& state_;
};

// The same bytes in a stream named "Contents" of a storage, which is not kept.
class StoragePersistence final : public ContainerPart<IPersistStorage> {
public:
    StoragePersistence(IUnknown* identity, StreamPersistence& stream, Notifications& notifications)
        : ContainerPart(identity), stream_(stream), notifications_(notifications) {}

    STDMETHODIMP GetClassID(CLSID* clsid) override { return stream_.GetClassID(clsid); }
    STDMETHODIMP IsDirty() override { return stream_.IsDirty(); }
    STDMETHODIMP InitNew(IStorage*) override { return stream_.InitNew(); }
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override { return S_OK; }

private:
    StreamPersistence& stream_;
    Notifications& notifications_;
};

}  // namespace mavrin2::server
