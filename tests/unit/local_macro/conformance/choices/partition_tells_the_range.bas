' Partition shows the range that a number falls into, padded so that all ranges are alike in width.
'> [  0:  4]
'> [  5:  9]
'> [ 95: 99]
'> [   : -1]
'> [100:   ]
Sub main()
    For Each n In Array(0, 7, 99, -3, 150)
        Debug.Print "[" & Partition(n, 0, 99, 5) & "]"
    Next
End Sub
