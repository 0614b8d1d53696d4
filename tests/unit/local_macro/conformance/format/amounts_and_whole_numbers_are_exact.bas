' Currency and LongLong are shown to their last digit.
'> 922,337,203,685,477.5807
'> 9223372036854775807
'> -9007199254740993.00
Sub main()
    Debug.Print Format(CCur("922337203685477.5807"), "#,##0.0000")
    Debug.Print Format(CLngLng("9223372036854775807"), "0")
    Debug.Print Format(CLngLng("-9007199254740993"), "0.00")
End Sub
