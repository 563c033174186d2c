#pragma once
// Left empty: the C++ library asks here whose C library it is, and is to take it for Apple's.
