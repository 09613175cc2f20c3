#pragma once

#include "frame/modFormRoutines.h"

/// The bits of a `ButtonMask`, by the names of the toolbar's buttons.
namespace tarnwell::Button {

enum Bit : ButtonMask {
    Help = 0x1, ///< No button shows for it: help is opened by F1.
    Add = 0x2,
    Remove = 0x4,
    Save = 0x8,
    Exit = 0x10,
    Info = 0x20,
    Find = 0x40,
    BeginningOfFile = 0x80,
    Previous = 0x100,
    Next = 0x200,
    EndOfFile = 0x400,
    AddSame = 0x800,
    Print = 0x1000,
    Cut = 0x2000,
    Paste = 0x4000,
    Undo = 0x8000,
    Copy = 0x10000,
    Group = 0x20000,
    Wizard = 0x40000,
    Download = 0x80000,
    Upload = 0x100000,
    Void = 0x200000,
    PrintPreview = 0x400000,
    Website = 0x800000,
    Refresh = 0x1000000,
    RemoveQuestion = 0x2000000,
    RemoveAnswer = 0x4000000,
    RemoveList = 0x8000000
};

} // namespace tarnwell::Button
