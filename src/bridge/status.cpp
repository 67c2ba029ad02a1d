#include "bridge/status.h"

#include <cstddef>
#include <iterator>

namespace quillkit {
namespace {

constexpr std::string_view kTexts[] = {
    /* 0*/ "No Error",
    /* 1*/ "Duplicated Login",
    /* 2*/ "Invalid User or Password",
    /* 3*/ "Address Book Not Found",
    /* 4*/ "Data Not Found",
    /* 5*/ "No More Addresses",
    /* 6*/ "General Failure",
    /* 7*/ "Invalid Field",
    /* 8*/ "Address Book Locked",
    /* 9*/ "Duplicated Address Book's Name",
    /*10*/ "Not Logged In",
    /*11*/ "Access Denied",
    /*12*/ "Static Address Book",
    /*13*/ "Call Not Implemented",
    /*14*/ "Name Conflict",
    /*15*/ "IMSP Idle",
    /*16*/ "IMSP Server Busy",
    /*17*/ "Bad Command",
    /*18*/ "IMSP Failure",
    /*19*/ "Timeout Expired",
    /*20*/ "IMSP Unitialized",  // applications compare this text: the spelling stays
    /*21*/ "More Data Available than request",
    /*22*/ "IMSP Busy",
    /*23*/ "",
    /*24*/ "Address Book Full",
    /*25*/ "Invalid host name",
    /*26*/ "",
    /*27*/ "",
    /*28*/ "",
    /*29*/ "",
    /*30*/ "",
    /*31*/ "",
};

}  // namespace

std::string_view StatusText(Status code) {
  const auto slot = static_cast<std::uint32_t>(code);
  return slot < std::size(kTexts) ? kTexts[slot] : "Unknown Error Code !";
}

}  // namespace quillkit
