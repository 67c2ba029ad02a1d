// The common root of the class library.

#ifndef QUILLKIT_BASE_ROOT_OBJECT_H_
#define QUILLKIT_BASE_ROOT_OBJECT_H_

#include "base/class_record.h"

namespace quillkit {

class Archive;

class RootObject {
 public:
  RootObject() = default;
  RootObject(const RootObject&) = delete;
  RootObject& operator=(const RootObject&) = delete;

  // The slots stand in this order in every class.
  virtual const ClassRecord* GetRuntimeClass() const = 0;
  virtual ~RootObject() = default;

  // Writes the object to the archive or fills it from there, as the archive's direction says. A
  // class without a stream form keeps this empty one.
  virtual void Serialize(Archive& archive);

  // Diagnostics for a debugger or a subclass; nothing here does anything by default.
  virtual void AssertValid() const;
  virtual void Describe() const;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ROOT_OBJECT_H_
