// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Empty: it carries the precompiled headers of the tests.
