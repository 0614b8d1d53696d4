' All digits in front of the point are written out; what is too small for the places is zero.
'> 100000000000000000000 0.00 0.0000000001
Sub main()
    Debug.Print Format(1E20, "0") & " " & Format(1E-10, "0.00") & " " & Format(1E-10, "0.0000000000")
End Sub
