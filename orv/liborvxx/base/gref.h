// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `gref`, a counted reference, and `gref_base`, which its objects derive from.
#ifndef ORV_LIBORVXX_BASE_GREF_H
#define ORV_LIBORVXX_BASE_GREF_H

#include "orv/liborvxx/base/platform.h"

#include <atomic>
#include <cassert>
#include <cstddef>
#include <utility>

namespace orv {

template <typename T>
class gref;

/// The base of a class \p T whose objects live on the heap, are shared through `gref<T>` and die
/// with the last one. It holds the count.
///
/// `T` makes its destructor private and `gref_base<T>` its friend. The count is atomic, so `gref`s
/// to one object may be copied and dropped on several threads at once; whether the object itself
/// may be used on several is for `T` to say.
template <typename T>
class gref_base {
public:
    gref_base(const gref_base&) = delete;
    gref_base& operator=(const gref_base&) = delete;

protected:
    /// An object that no `gref` refers to yet.
    gref_base() noexcept : count_(0) {}

    /// An object that starts with the count \p count.
    explicit gref_base(unsigned int count) noexcept : count_(count) {}

    virtual ~gref_base() = default;

    /// Ends the life of the object; called when the count reaches 0.
    virtual void destroy() { delete static_cast<T*>(this); }

    /// One more reference to this object. Objects that are shared do not change, so a member that
    /// only reads may hand out a reference too.
    gref<T> gref_from_this() const noexcept {
        return gref<T>(const_cast<T*>(static_cast<const T*>(this)));
    }

private:
    friend class gref<T>;

    void addRef() const noexcept { count_.fetch_add(1, std::memory_order_relaxed); }

    /// What other threads did to the object happens before its end.
    void release() {
        assert(getRefCount() != 0);
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            destroy();
        }
    }

    unsigned int getRefCount() const noexcept { return count_.load(std::memory_order_relaxed); }

    mutable std::atomic<unsigned int> count_;
};

/// A counted reference to a \p T, which derives from `gref_base<T>`; or null.
///
/// As large as a pointer. Several threads may each use their own `gref` to one object; one `gref`
/// belongs to one thread at a time.
template <typename T>
class gref {
public:
    using element_type = T;

    /// Null.
    constexpr gref() noexcept = default;
    constexpr gref(std::nullptr_t) noexcept {}

    /// A reference to \p object, which may be null and else lives on the heap.
    explicit gref(T* object) noexcept : object_(object) {
        if (object_ != nullptr) {
            base(object_).addRef();
        }
    }

    gref(const gref& other) noexcept : gref(other.object_) {}
    gref(gref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

    gref& operator=(const gref& other) noexcept {
        gref(other).swap(*this);
        return *this;
    }
    gref& operator=(gref&& other) noexcept {
        gref(std::move(other)).swap(*this);
        return *this;
    }

    ~gref() {
        if (object_ != nullptr) {
            base(object_).release();
        }
    }

    T* get() const noexcept { return object_; }

    /// The object. The reference must not be null.
    T& operator*() const noexcept {
        assert(object_ != nullptr);
        return *object_;
    }
    T* operator->() const noexcept {
        assert(object_ != nullptr);
        return object_;
    }

    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Becomes null.
    void reset() noexcept { gref().swap(*this); }

    void swap(gref& other) noexcept { std::swap(object_, other.object_); }

    /// How many references there are to the object, 0 for a null one. Other threads may change it
    /// at any moment.
    unsigned int useCount() const noexcept {
        return object_ == nullptr ? 0 : base(object_).getRefCount();
    }

    friend bool operator==(const gref& a, std::nullptr_t) noexcept { return a.object_ == nullptr; }

private:
    static gref_base<T>& base(T* object) noexcept { return *object; }

    T* object_ = nullptr;
};

/// Exchanges two.
template <typename T>
void swap(gref<T>& a, gref<T>& b) noexcept {
    a.swap(b);
}

/// A new `T` from \p args, and the reference to it.
template <typename T, typename... Args>
gref<T> make_gref(Args&&... args) {
    return gref<T>(new T(std::forward<Args>(args)...));
}

} // namespace orv

#endif
