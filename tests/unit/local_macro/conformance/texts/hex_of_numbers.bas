' Hex has four digits for a negative Integer, eight for a Long, sixteen for a LongLong.
'> FF 0 FFFF FFFFFFFF FFFFFFFFFFFFFFFF 7FFFFFFF
Sub main()
    Debug.Print Hex(255) & " " & Hex(0) & " " & Hex(-1) & " " & Hex(-1&) & " " & Hex(CLngLng(-1)) & " " & Hex(2147483647)
End Sub
