# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""All attacks, in the groups in which they are played."""

import chat
import downloads
import framing
import handshake
import limits
import lines
import listings
import notices
import people
import pictures
import reader
import trackers
import uploads

GROUPS = {
    "beginnings": handshake.ATTACKS + framing.ATTACKS,
    "texts": chat.ATTACKS,
    "people": people.ATTACKS + notices.ATTACKS + listings.ATTACKS,
    "transfers": downloads.ATTACKS + uploads.ATTACKS,
    "pictures": pictures.ATTACKS,
    "trackers": trackers.ATTACKS + lines.ATTACKS,
    "limits": limits.ATTACKS,
    "reader": reader.ATTACKS,
}

# The group that is played with a screen reader's side on; the others are without.
WITH_READER = "reader"
