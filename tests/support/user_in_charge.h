// Whom the library speaks to while the object lives; null: nobody.
#ifndef TIDEWELL_TESTS_SUPPORT_USER_IN_CHARGE_H
#define TIDEWELL_TESTS_SUPPORT_USER_IN_CHARGE_H

#include "ui/user.h"

class UserInCharge {
  public:
    explicit UserInCharge(const tidewell::User* user) : former_(tidewell::SetUser(user)) {}
    ~UserInCharge() { tidewell::SetUser(former_); }
    UserInCharge(const UserInCharge&) = delete;
    UserInCharge& operator=(const UserInCharge&) = delete;

  private:
    const tidewell::User* former_;
};

#endif
