/* SPDX-License-Identifier: MIT
 * The code of systems that were made up at random.
 */
#ifndef QUORVANE_RANDOM_SYSTEMS_H
#define QUORVANE_RANDOM_SYSTEMS_H

#ifdef __cplusplus
extern "C" {
#endif

typedef int (*system_function)(const double* inputs, double* outputs);

/* A system: its code, its code as a table (null where it has none), and its definition texts. */
struct random_system {
    system_function run;
    system_function look_up;
    const char* inputs;
    const char* outputs;
    const char* rules;
};

/* How many divisions the tables have. */
enum { RANDOM_TABLE_DIVISIONS = 3 };

extern const struct random_system random_systems[];
extern const unsigned random_system_count;

#ifdef __cplusplus
}
#endif

#endif
