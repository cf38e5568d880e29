// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// While it lives, operator new refuses one block: the `number`th (from 1) of 16 kB or more. Small
/// blocks are always granted, since nobody survives without those. For a program linked with
/// RefusedBlock.cpp, which brings an operator new of its own.
class RefusedBlock {
public:
    explicit RefusedBlock(int number);
    ~RefusedBlock();
    RefusedBlock(const RefusedBlock&) = delete;
    RefusedBlock& operator=(const RefusedBlock&) = delete;

    /// Whether there have been as many blocks.
    bool wasRefused() const;
};
