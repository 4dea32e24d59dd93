/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ToolTipRow.h"


ToolTipRow::~ToolTipRow() = default;
