if [ "$sum" -ne 4 ]; then
    echo "FAIL!  : tst_sum::addsTwoAndTwo() gives $sum $unit"
    exit 1
fi
