#!/bin/sh
# Run once, when the package is installed: makes the folder that the program's downloads go to.
mkdir -p /boot/home/Downloads
