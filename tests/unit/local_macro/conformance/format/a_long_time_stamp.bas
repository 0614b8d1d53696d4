' A stamp without separators, as it is put into file names.
'> 20260308_160509
Sub main()
    Debug.Print Format(#3/8/2026 4:05:09 PM#, "yyyymmdd_hhnnss")
End Sub
