#pragma once

#include <QObject>
#include <QtGlobal>

#include <functional>
#include <map>
#include <thread>
#include <utility>

// Qt calls the functions in this table for every object that is created or destroyed, in any
// thread. It is meant for debuggers, so its declaration is in a private header.
extern quintptr Q_CORE_EXPORT qtHookData[]; // NOLINT(modernize-avoid-c-arrays): Qt has it so

/// Watches the objects that the current thread creates while the watch lives. One at a time.
class ObjectWatch
{
public:
    /// Calls `onCreated`, if given, whenever another object is created.
    explicit ObjectWatch(std::function<void(const ObjectWatch &)> onCreated = nullptr)
        : onCreated_(std::move(onCreated))
    {
        if (qtHookData[kVersion] != 3) {
            qFatal("Qt's table of hooks has another layout: adapt ObjectWatch");
        }
        current = this;
        qtHookData[kCreated] = reinterpret_cast<quintptr>(&Created);
        qtHookData[kDestroyed] = reinterpret_cast<quintptr>(&Destroyed);
    }
    ~ObjectWatch()
    {
        qtHookData[kCreated] = 0;
        qtHookData[kDestroyed] = 0;
        current = nullptr;
    }
    ObjectWatch(const ObjectWatch &) = delete;
    ObjectWatch &operator=(const ObjectWatch &) = delete;

    /// The objects of a class that exist now, in the order of their creation. The numbers tell
    /// apart objects that got the same address one after the other.
    template<typename Class> std::map<int, const Class *> Existing() const
    {
        std::map<int, const Class *> existing;
        for (const auto &[object, number] : numbers_) {
            if (const auto *const found = qobject_cast<const Class *>(object)) {
                existing.emplace(number, found);
            }
        }
        return existing;
    }

private:
    // Places in Qt's table, as of version 3 of its layout.
    static constexpr int kVersion = 0;
    static constexpr int kCreated = 3;
    static constexpr int kDestroyed = 4;

    static void Created(QObject *object)
    {
        if (std::this_thread::get_id() == current->thread_) {
            current->numbers_[object] = ++current->count_;
            if (current->onCreated_) {
                current->onCreated_(*current);
            }
        }
    }
    static void Destroyed(QObject *object)
    {
        if (std::this_thread::get_id() == current->thread_) {
            current->numbers_.erase(object);
        }
    }

    static inline ObjectWatch *current = nullptr;

    std::function<void(const ObjectWatch &)> onCreated_;
    std::thread::id thread_ = std::this_thread::get_id();
    std::map<const QObject *, int> numbers_;
    int count_ = 0;
};
