// A COM object's identity and life: counted references, with or without an outer object that aggregates it.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace obk::server {

// Used by one thread, its apartment's. Starts with one reference, the creator's.
class ObjectIdentity {
public:
    ObjectIdentity(const ObjectIdentity&) = delete;
    ObjectIdentity& operator=(const ObjectIdentity&) = delete;

    // What the object's interfaces answer to: the aggregating object, or this object itself.
    IUnknown* outer() const { return outer_; }
    // Counts this object's own references, whoever aggregates it.
    IUnknown* inner() { return &inner_; }

    void addReference() { ++references_; }
    ULONG releaseReference() {
        if (references_ > 1) return --references_;
        end();
        return 0;
    }

    // Keeps the object, and the control in it, alive while one of its functions runs.
    class Hold {
    public:
        explicit Hold(ObjectIdentity& object) : object_(object) { object_.addReference(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        ~Hold() { object_.releaseReference(); }

    private:
        ObjectIdentity& object_;
    };

protected:
    explicit ObjectIdentity(IUnknown* outer) : inner_(*this), outer_(outer ? outer : &inner_) {}
    virtual ~ObjectIdentity() = default;

    // The interface with this identifier, uncounted, or null.
    virtual IUnknown* find(REFIID iid) = 0;

private:
    class Inner final : public IUnknown {
    public:
        explicit Inner(ObjectIdentity& object) : object_(object) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
        ULONG STDMETHODCALLTYPE AddRef() override {
            object_.addReference();
            return object_.references_;
        }
        ULONG STDMETHODCALLTYPE Release() override { return object_.releaseReference(); }

    private:
        ObjectIdentity& object_;
    };

    void end();

    Inner inner_;
    IUnknown* outer_;
    ULONG references_ = 1;
};

}  // namespace obk::server
