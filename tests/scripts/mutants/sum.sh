#!/bin/sh
sum=$((2 + 2))
unit=songs
