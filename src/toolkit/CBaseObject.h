#pragma once

#include <cstdint>
#include <string_view>

namespace tessel8 {

/// The root of the toolkit's objects: lives as long as somebody counts on it. User-interface
/// thread only.
class CBaseObject {
  public:
    CBaseObject() = default;
    /// A copy starts a life of its own, with one reference.
    CBaseObject(const CBaseObject& /*other*/) {}
    CBaseObject& operator=(const CBaseObject&) = delete;
    virtual ~CBaseObject() = default;

    /// Gives up one reference; the last one takes the object with it.
    virtual void forget() {
        if (--references == 0) {
            delete this;
        }
    }
    virtual void remember() { ++references; }
    virtual int32_t getNbReference() const { return references; }

    /// Something that this object asked for has happened at `sender`.
    virtual void notify(CBaseObject* /*sender*/) {}
    /// Whether the object is of the class of that name or derives from it.
    virtual bool isTypeOf(std::string_view name) const { return name == "CBaseObject"; }
    /// A copy that the caller owns, or null if there is no copying this kind.
    virtual CBaseObject* newCopy() const { return nullptr; }

  private:
    int32_t references = 1;
};

}  // namespace tessel8
