// The product's version, once.
#ifndef TIDEWELL_RES_VERSION_H
#define TIDEWELL_RES_VERSION_H

#define TIDEWELL_VERSION "0.1.0"
#define TIDEWELL_VERSION_NUMBERS 0, 1, 0, 0

#endif
