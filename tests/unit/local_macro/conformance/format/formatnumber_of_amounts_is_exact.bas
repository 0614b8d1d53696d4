' FormatNumber keeps all digits of an amount.
'> 922,337,203,685,477.5807
Sub main()
    Debug.Print FormatNumber(CCur("922337203685477.5807"), 4)
End Sub
