#pragma once

#include <QObject>
#include <QProperty>

/// A field of a controller that its screen observes: `name()` for everybody, and a private `name_`
/// of which an assignment tells the observers by itself, and only when the value changed. Stands in
/// the class body and leaves it `private`.
#define PUBLISHED(Class, Type, name)                                                               \
    Q_PROPERTY(Type name READ name NOTIFY name##Changed)                                           \
  public:                                                                                          \
    Type name() const {                                                                            \
        return name##_;                                                                            \
    }                                                                                              \
  Q_SIGNALS:                                                                                       \
    void name##Changed();                                                                          \
                                                                                                   \
  private:                                                                                         \
    Q_OBJECT_BINDABLE_PROPERTY(Class, Type, name##_, &Class::name##Changed)
